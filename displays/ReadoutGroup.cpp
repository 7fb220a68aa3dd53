// SPDX-License-Identifier: GPL-3.0-or-later
// What several readouts say together.
#include "displays/ReadoutGroup.h"

#include "displays/AutoResizeTextField.h"
#include "displays/DotView.h"

#include <algorithm>

namespace veltrano {

namespace {

QString inWords(QString value) {
    return value.replace(u'♯', ReadoutGroup::tr("sharp")).replace(u'♭', ReadoutGroup::tr("flat"));
}

QString named(const QWidget& view, const QString& value) {
    return view.accessibleName() + QStringLiteral(": ") + value;
}

} // namespace

ReadoutGroup::ReadoutGroup(const std::vector<QWidget*>& members, AccessibleReadout& reader) {
    for (QWidget* member : members) {
        if (auto* readout = dynamic_cast<AccessibleReadout*>(member)) readout->addFollower(reader);
        if (const auto* text = qobject_cast<AutoResizeTextField*>(member)) {
            mTexts.push_back(text);
        } else if (const auto* level = qobject_cast<LevelDotView*>(member)) {
            mLevels.push_back(level);
        } else if (const auto* light = qobject_cast<DotView*>(member)) {
            mLights.push_back(light);
        }
    }
}

QString ReadoutGroup::value(Joining joining) const {
    const QString separator = joining == Joining::list ? QStringLiteral(", ") : QStringLiteral(" ");
    return (litLights() + texts(joining)).join(separator);
}

QStringList ReadoutGroup::litLights() const {
    QStringList parts;
    if (!mLevels.empty()) {
        const auto lit = std::ranges::count_if(mLevels, &DotView::isLit);
        parts.append(tr("%1 of %2 lights").arg(lit).arg(mLevels.size()));
    }
    for (const DotView* light : mLights) {
        if (light->isLit()) parts.append(named(*light, light->accessibleValue()));
    }
    if (!mLights.empty() && parts.isEmpty()) parts.append(tr("off"));
    return parts;
}

QStringList ReadoutGroup::texts(Joining joining) const {
    QStringList parts;
    for (const AutoResizeTextField* field : mTexts) {
        const QString value = inWords(field->accessibleValue()).trimmed();
        if (field->isHidden() || value.isEmpty()) continue;
        parts.append(joining == Joining::list ? named(*field, value) : value);
    }
    return parts;
}

} // namespace veltrano
