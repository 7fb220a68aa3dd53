// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli devices
#include "audio/AUUnit.h"
#include "audio/AUUnitRegistry.h"
#include "cli/Commands.h"
#include "cli/LiveHardware.h"
#include "cli/Output.h"
#include "cli/TunerOptions.h"
#include "platform/foundation/MainThread.h"
#include "platform/foundation/StandardErrorLog.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

namespace veltrano {

namespace {

const QString kWatch = QStringLiteral("watch");

/// The unit of one direction, as the list in a menu would have it.
class ListedUnit final : public AUUnit {
public:
    ListedUnit(AUUnitRegistry& registry, bool isInput) : AUUnit(registry), mIsInput(isInput) {}
    bool isInput() const override { return mIsInput; }

    void writeTo(Output& output, bool isTable) const {
        DeviceList entries;
        setupAudioSource(entries, mIsInput);
        const std::optional<std::string> defaultName = nameOfDevice(defaultDevice());
        for (std::size_t index = 0; index < entries.size(); ++index) {
            const bool isDefault = entries[index].name == defaultName;
            output.line(isTable ? row(entries[index], isDefault)
                                : json(entries[index], index, isDefault));
        }
    }

private:
    std::string row(const DeviceEntry& entry, bool isDefault) const {
        return std::string(mIsInput ? "input   " : "output  ") + (isDefault ? "* " : "  ") +
               entry.name;
    }

    std::string json(const DeviceEntry& entry, std::size_t index, bool isDefault) const {
        QJsonObject object{{"direction", mIsInput ? "input" : "output"},
                           {"index", static_cast<qint64>(index)},
                           {"name", QString::fromStdString(entry.name)},
                           {"deviceID", static_cast<qint64>(entry.deviceID)},
                           {"default", isDefault}};
        if (entry.dataSource) object.insert("dataSource", static_cast<qint64>(*entry.dataSource));
        return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
    }

    const bool mIsInput;
};

/// Writes both lists, and again after every change of them.
class DeviceLister final : public AUUnit {
public:
    DeviceLister(AUUnitRegistry& registry, Output& output, bool isTable)
        : AUUnit(registry), mOutput(output), mIsTable(isTable), mInputs(registry, true),
          mOutputs(registry, false) {
        registry.addListenerTarget(*this);
    }

    void write() {
        mInputs.writeTo(mOutput, mIsTable);
        mOutputs.writeTo(mOutput, mIsTable);
    }

    Status audioHardwareListener(PropertyCode) override {
        mOutput.line("");
        write();
        return audio_status::kOk;
    }

private:
    Output& mOutput;
    const bool mIsTable;
    ListedUnit mInputs;
    ListedUnit mOutputs;
};

} // namespace

int runDevices(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Lists the input and output devices; * marks the default one."));
    declareFormat(parser);
    parser.addOption({kWatch, QStringLiteral("Lists them again after every change.")});
    if (const std::optional<int> done = parseCommand(parser, arguments)) return *done;
    if (!parser.positionalArguments().isEmpty()) {
        return wrongUsage(QStringLiteral("devices"), QStringLiteral("devices takes no file"));
    }

    StandardErrorLog log;
    const std::unique_ptr<AudioHardware> hardware = liveHardware(log);
    MainThread mainThread;
    AUUnitRegistry registry(
        *hardware, [&](auto function) { mainThread.post(std::move(function)); }, log);
    Output output;
    output.onClosed = [] { QCoreApplication::quit(); };
    DeviceLister lister(registry, output, isTableWanted(parser));
    lister.write();
    return parser.isSet(kWatch) && !output.isClosed() ? QCoreApplication::exec() : kDone;
}

} // namespace veltrano
