// SPDX-License-Identifier: GPL-3.0-or-later
// Tuning data as it is written to standard output.
#pragma once

#include "cli/Output.h"
#include "tuning/Temperament.h"

#include <QJsonArray>
#include <QJsonObject>
#include <optional>
#include <span>
#include <string>

namespace veltrano {

/// A value that is no number is null.
QJsonArray numbersJson(std::span<const double> values);
/// An absent text is null.
QJsonValue textJson(const std::optional<std::string>& utf8);
/// What a document shows: its tonic and the columns of its table.
QJsonObject documentJson(const Temperament& values);

/// Writes @p object as one line.
void writeObject(Output& output, const QJsonObject& object);
/// Writes the object of a refused file: "accepted" is false, the other @p keys are null.
void writeRefused(Output& output, std::initializer_list<const char*> keys);

} // namespace veltrano
