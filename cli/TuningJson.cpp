// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TuningJson.h"

#include <QJsonDocument>

namespace veltrano {

QJsonArray numbersJson(std::span<const double> values) {
    QJsonArray numbers;
    for (const double value : values)
        numbers.append(value); // NaN and infinities are written as null
    return numbers;
}

QJsonValue textJson(const std::optional<std::string>& utf8) {
    return utf8 ? QJsonValue(QString::fromStdString(*utf8)) : QJsonValue();
}

QJsonObject documentJson(const Temperament& values) {
    QJsonArray rows;
    for (int row = 0; row < 12; ++row)
        rows.append(QString::fromStdString(values.noteIntervalName(row)));
    return {{"tonic", values.tonic()},
            {"cents", numbersJson(values.cents())},
            {"ratios", numbersJson(values.ratios())},
            {"hertz", numbersJson(values.hertz())},
            {"rows", rows}};
}

void writeObject(Output& output, const QJsonObject& object) {
    output.line(QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString());
}

void writeRefused(Output& output, std::initializer_list<const char*> keys) {
    QJsonObject object{{"accepted", false}};
    for (const char* key : keys)
        object.insert(QLatin1String(key), QJsonValue());
    writeObject(output, object);
}

} // namespace veltrano
