// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/SpeechEngine.h"

#include <QLocale>
#include <QTextToSpeech>
#include <utility>

namespace veltrano {

namespace {

/// Flite's is not used: in Qt 6.4 it is silent for many a text, and crashes when it is stopped.
/// @returns an empty name when there is none
QString usableEngine() {
    QStringList engines = QTextToSpeech::availableEngines();
    engines.removeAll(QStringLiteral("flite"));
    const QString service = QStringLiteral("speechd");
    return engines.contains(service) ? service : engines.value(0);
}

/// All texts are English; the users' own voice is kept when it is.
void chooseEnglish(QTextToSpeech& engine) {
    if (engine.locale().language() == QLocale::English) return;
    for (const QLocale& locale : engine.availableLocales()) {
        if (locale.language() != QLocale::English) continue;
        engine.setLocale(locale);
        return;
    }
}

} // namespace

SpeechEngine::SpeechEngine(Log& log, const Clock& clock) : mTurns(*this, log, clock) {}

SpeechEngine::~SpeechEngine() {
    mThread.quit();
    mThread.wait();
}

void SpeechEngine::speak(const std::string& utf8) {
    if (!mSpeechThread) {
        mSpeechThread = new QObject;
        mSpeechThread->moveToThread(&mThread);
        QObject::connect(&mThread, &QThread::finished, mSpeechThread, &QObject::deleteLater);
        mThread.start();
    }
    QMetaObject::invokeMethod(mSpeechThread, [this, text = QString::fromStdString(utf8)] {
        if (QTextToSpeech* voice = engine()) voice->say(text);
    });
}

void SpeechEngine::fallSilent() {
    QMetaObject::invokeMethod(mSpeechThread, [this] {
        if (mEngine) mEngine->stop();
    });
}

QTextToSpeech* SpeechEngine::engine() {
    if (mEngine) return mEngine;
    const QString name = usableEngine();
    if (name.isEmpty()) {
        tell([this] { mTurns.failed("no speech engine is installed"); });
        return nullptr;
    }
    mEngine = new QTextToSpeech(name, mSpeechThread);
    QObject::connect(mEngine, &QTextToSpeech::stateChanged, mEngine, [this](auto state) {
        if (state == QTextToSpeech::Speaking) tell([this] { mTurns.started(); });
        if (state == QTextToSpeech::Ready) tell([this] { mTurns.finished(); });
    });
    // A second failure leaves the state as it is, so states do not tell failures.
    QObject::connect(mEngine, &QTextToSpeech::errorOccurred, mEngine,
                     [this](auto, const QString& reason) {
                         tell([this, text = reason.toStdString()] { mTurns.failed(text); });
                     });
    chooseEnglish(*mEngine);
    return mEngine;
}

template <class Function>
void SpeechEngine::tell(Function function) {
    QMetaObject::invokeMethod(&mMainThread, std::move(function), Qt::QueuedConnection);
}

} // namespace veltrano
