// SPDX-License-Identifier: GPL-3.0-or-later
// Windows and panels out of interface files.
#include "platform/desktop/InterfaceFile.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QFile>
#include <QScrollBar>
#include <QThread>
#include <QUiLoader>
#include <utility>

namespace veltrano {

namespace {

// A loader looks for plug-ins with further widgets in every library path and loads them all, which
// we do not need: with Qt Quick's it takes three times as long and 6 MiB.
class WithoutLibraryPaths {
public:
    WithoutLibraryPaths() : mPaths(QCoreApplication::libraryPaths()) {
        QCoreApplication::setLibraryPaths({});
    }
    ~WithoutLibraryPaths() { QCoreApplication::setLibraryPaths(mPaths); }
    WithoutLibraryPaths(const WithoutLibraryPaths&) = delete;
    WithoutLibraryPaths& operator=(const WithoutLibraryPaths&) = delete;

private:
    const QStringList mPaths;
};

// The loader also warns of a broken file on its own; those warnings are held back, because the
// error given to the caller says the same. Main thread; other threads' messages pass.
class HeldWarnings {
public:
    HeldWarnings() { sPrevious = qInstallMessageHandler(hold); }
    ~HeldWarnings() { qInstallMessageHandler(sPrevious); }
    HeldWarnings(const HeldWarnings&) = delete;
    HeldWarnings& operator=(const HeldWarnings&) = delete;

    static QStringList take() { return std::exchange(sTexts, {}); }

private:
    static void hold(QtMsgType type, const QMessageLogContext& context, const QString& text) {
        if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
            sTexts.append(text);
        } else {
            sPrevious(type, context, text);
        }
    }

    inline static QStringList sTexts;
    inline static QtMessageHandler sPrevious = nullptr;
};

/// A window that is a plain widget says that it is a window, as long as it is one.
class PlainWidgetInterface final : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;
    QAccessible::Role role() const override {
        return widget()->isWindow() ? QAccessible::Window : QAccessibleWidget::role();
    }
};

QAccessibleInterface* makePlainWidgetInterface(const QString&, QObject* object) {
    if (object->metaObject() != &QWidget::staticMetaObject) return nullptr;
    return new PlainWidgetInterface(static_cast<QWidget*>(object));
}

class Loader final : public QUiLoader {
public:
    explicit Loader(const WidgetMakers& makers) : mMakers(makers) {}

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        const auto maker = mMakers.constFind(className);
        if (maker == mMakers.constEnd()) return QUiLoader::createWidget(className, parent, name);
        QWidget* widget = (*maker)(parent);
        widget->setObjectName(name);
        return widget;
    }

private:
    const WidgetMakers& mMakers;
};

void nameScrollBars(const QWidget& widget) {
    for (QScrollBar* bar : widget.findChildren<QScrollBar*>()) {
        const bool isVertical = bar->orientation() == Qt::Vertical;
        bar->setAccessibleName(
            isVertical ? QCoreApplication::translate("InterfaceFile", "Vertical scroll bar")
                       : QCoreApplication::translate("InterfaceFile", "Horizontal scroll bar"));
    }
}

} // namespace

std::unique_ptr<QWidget> loadInterfaceFile(const QString& path, const WidgetMakers& makers,
                                           QString* error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = path + QStringLiteral(": ") + file.errorString();
        return nullptr;
    }
    QAccessible::installFactory(makePlainWidgetInterface); // once or more
    const auto loader = [&makers] {
        const WithoutLibraryPaths scope;
        return std::make_unique<Loader>(makers);
    }();
    std::unique_ptr<QWidget> widget;
    QStringList warnings;
    {
        const HeldWarnings scope;
        widget.reset(loader->load(&file));
        warnings = scope.take();
    }
    if (widget) {
        nameScrollBars(*widget);
        for (const QString& warning : warnings)
            qWarning("%s", qUtf8Printable(warning));
    } else {
        *error = path + QStringLiteral(": ") + loader->errorString().simplified();
    }
    return widget;
}

} // namespace veltrano
