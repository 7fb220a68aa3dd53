// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/PulseHardware.h"

#include "platform/audio/PropertyNotifier.h"
#include "platform/audio/PublishedDevices.h"
#include "platform/audio/PulseMainLoop.h"
#include "platform/audio/PulseSession.h"

#include <QObject>
#include <algorithm>
#include <map>
#include <utility>

namespace veltrano {

using audio_status::kBadDevice;
using audio_status::kNotAdded;
using audio_status::kNotSupported;
using audio_status::kOk;

struct PulseHardware::Private {
    Private(Log& log, const Options& options)
        : session(loop.api(), log, options.server, options.application,
                  {[this](const DeviceSnapshot& list, const std::vector<PropertyChange>& changes) {
                       publish(list, changes);
                   },
                   [this] { published.setBegun(); }}) {}

    void publish(const DeviceSnapshot& list, const std::vector<PropertyChange>& changes) {
        published.set(list);
        for (const PropertyChange& change : changes) {
            if (change.device == 0) {
                notifier.notifyHardware(change.property);
            } else {
                notifier.notifyDevice(change.device, change.channel, change.direction,
                                      change.property);
            }
        }
    }

    struct IOProc {
        AudioDeviceIOProc proc = nullptr;
        void* refCon = nullptr;
        bool isStarted = false;
    };

    /// nullptr when @p proc is not the one that was added.
    IOProc* addedProc(DeviceId device, AudioDeviceIOProc proc) {
        const auto added = ioProcs.find(device);
        const bool isIt = proc && added != ioProcs.end() && added->second.proc == proc;
        return isIt ? &added->second : nullptr;
    }

    // The loop's thread uses what stands above it, and is ended first.
    PropertyNotifier notifier{NotifyOn::notificationThread};
    PublishedDevices published;
    PulseMainLoop loop;
    PulseSession session; ///< guarded by the loop's lock

    // Main thread only.
    std::map<DeviceId, IOProc> ioProcs;
    std::map<DeviceId, std::vector<float>> volumesToSend;
    QObject turn; ///< receiver of the call that ends a turn of the event loop
};

PulseHardware::PulseHardware(Log& log, const Options& options)
    : m(std::make_unique<Private>(log, options)) {
    if (!m->loop.start()) {
        log.detail("The sound server cannot be heard: no thread.");
        return;
    }
    if (m->published.awaitBegun(options.firstListSeconds)) return;
    const PulseMainLoop::Lock lock(m->loop);
    m->session.endBeginning();
}

PulseHardware::~PulseHardware() { m->loop.stop(); }

template <class Ask>
auto PulseHardware::ofDevice(DeviceId id, Direction direction, Ask ask) const {
    const auto list = m->published.get();
    const DeviceRecord* const device = list->find(id);
    using Answer = decltype(ask(*device));
    return device && device->direction == direction ? ask(*device) : Answer{};
}

// --- reading ---

std::vector<DeviceId> PulseHardware::devices() const {
    const auto list = m->published.get();
    std::vector<DeviceId> ids;
    for (const DeviceRecord& device : list->devices)
        ids.push_back(device.id);
    return ids;
}

std::optional<DeviceId> PulseHardware::defaultDevice(Direction direction) const {
    const auto list = m->published.get();
    return direction == Direction::input ? list->defaultInput : list->defaultOutput;
}

std::optional<StreamDescription> PulseHardware::streamFormat(DeviceId id,
                                                             Direction direction) const {
    return ofDevice(id, direction,
                    [](const DeviceRecord& device) { return std::optional(device.format); });
}

std::optional<StreamConfiguration> PulseHardware::streamConfiguration(DeviceId id,
                                                                      Direction direction) const {
    return ofDevice(id, direction, [](const DeviceRecord& device) {
        return std::optional(StreamConfiguration{{device.format.channelsPerFrame}});
    });
}

std::optional<std::string> PulseHardware::deviceName(DeviceId id, Direction direction) const {
    return ofDevice(id, direction,
                    [](const DeviceRecord& device) { return std::optional(device.name); });
}

std::optional<std::string> PulseHardware::deviceManufacturer(DeviceId id,
                                                             Direction direction) const {
    return ofDevice(id, direction,
                    [](const DeviceRecord& device) { return std::optional(device.manufacturer); });
}

bool PulseHardware::isDataSourceWritable(DeviceId id, Direction direction) const {
    return ofDevice(id, direction,
                    [](const DeviceRecord& device) { return device.sources.size() >= 2; });
}

std::vector<DataSourceId> PulseHardware::dataSources(DeviceId id, Direction direction) const {
    return ofDevice(id, direction, [](const DeviceRecord& device) {
        std::vector<DataSourceId> ids;
        for (const DeviceRecord::Source& source : device.sources)
            ids.push_back(source.id);
        return ids;
    });
}

std::optional<DataSourceId> PulseHardware::dataSource(DeviceId id, Direction direction) const {
    return ofDevice(id, direction, [](const DeviceRecord& device) { return device.source; });
}

std::optional<std::string> PulseHardware::dataSourceName(DeviceId id, Direction direction,
                                                         DataSourceId source) const {
    return ofDevice(id, direction, [source](const DeviceRecord& device) {
        std::optional<std::string> name;
        for (const DeviceRecord::Source& known : device.sources) {
            if (known.id == source) name = known.name;
        }
        return name;
    });
}

bool PulseHardware::isVolumeWritable(DeviceId id, Direction direction,
                                     std::uint32_t channel) const {
    return volume(id, direction, channel).has_value();
}

std::optional<float> PulseHardware::volume(DeviceId id, Direction direction,
                                           std::uint32_t channel) const {
    return ofDevice(id, direction, [channel](const DeviceRecord& device) {
        const bool hasIt = channel >= 1 && channel <= device.volumes.size();
        return hasIt ? std::optional(device.volumes[channel - 1]) : std::nullopt;
    });
}

// --- writing ---

Status PulseHardware::setDataSource(DeviceId id, Direction direction, DataSourceId source) {
    const auto list = m->published.get();
    const DeviceRecord* const device = list->find(id);
    if (!device) return kBadDevice;
    if (!isDataSourceWritable(id, direction)) return kNotSupported;
    if (!dataSourceName(id, direction, source)) return kNotSupported;
    const PulseMainLoop::Lock lock(m->loop);
    const Status sent = m->session.setPort(*device, source);
    // Who writes it reads it back; the server's next list comes later, and with it 'ssrc'.
    if (sent == kOk) m->published.set(m->published.get()->withSource(id, source));
    return sent;
}

Status PulseHardware::setVolume(DeviceId id, Direction direction, std::uint32_t channel,
                                float scalar) {
    const auto list = m->published.get();
    const DeviceRecord* const device = list->find(id);
    if (!device) return kBadDevice;
    if (!isVolumeWritable(id, direction, channel)) return kNotSupported;
    const auto [entry, isNew] = m->volumesToSend.try_emplace(id, device->volumes);
    if (entry->second.size() < channel) return kNotSupported; // it changed since the first write
    // Not std::clamp, which lets NaN through.
    entry->second[channel - 1] = scalar > 0 ? std::min(scalar, 1.0f) : 0.0f;
    if (isNew) {
        QMetaObject::invokeMethod(
            &m->turn, [this] { sendVolumes(); }, Qt::QueuedConnection);
    }
    return kOk;
}

void PulseHardware::sendVolumes() {
    const auto list = m->published.get();
    const PulseMainLoop::Lock lock(m->loop);
    for (const auto& [id, scalars] : std::exchange(m->volumesToSend, {})) {
        if (const DeviceRecord* device = list->find(id)) m->session.setVolumes(*device, scalars);
    }
}

// --- listeners ---

Status PulseHardware::addHardwareListener(PropertyCode property, AudioHardwareListenerProc proc,
                                          void* client) {
    m->notifier.add(PropertyNotifier::HardwareListener{property, proc, client});
    return kOk;
}

Status PulseHardware::removeHardwareListener(PropertyCode property, AudioHardwareListenerProc proc,
                                             void* client) {
    const PropertyNotifier::HardwareListener gone{property, proc, client};
    return m->notifier.remove(gone) ? kOk : kNotAdded;
}

Status PulseHardware::addDeviceListener(DeviceId id, std::uint32_t channel, Direction direction,
                                        PropertyCode property, AudioDeviceListenerProc proc,
                                        void* client) {
    if (!m->published.get()->find(id)) return kBadDevice;
    m->notifier.add(
        PropertyNotifier::DeviceListener{id, channel, direction, property, proc, client});
    return kOk;
}

Status PulseHardware::removeDeviceListener(DeviceId id, std::uint32_t channel, Direction direction,
                                           PropertyCode property, AudioDeviceListenerProc proc) {
    // Also for a device that is gone: its listeners must not outlive their owner.
    const PropertyNotifier::DeviceListener gone{id, channel, direction, property, proc, nullptr};
    return m->notifier.remove(gone) ? kOk : kNotAdded;
}

// --- I/O procedures ---

Status PulseHardware::addIOProc(DeviceId id, AudioDeviceIOProc proc, void* refCon) {
    if (!m->published.get()->find(id)) return kBadDevice;
    Private::IOProc& added = m->ioProcs[id];
    if (!proc || added.isStarted) return kNotSupported;
    added = {proc, refCon};
    return kOk;
}

Status PulseHardware::removeIOProc(DeviceId id, AudioDeviceIOProc proc) {
    const Status stopped = stop(id, proc);
    if (stopped == kOk) m->ioProcs.erase(id);
    return stopped;
}

Status PulseHardware::start(DeviceId id, AudioDeviceIOProc proc) {
    const auto list = m->published.get();
    const DeviceRecord* const device = list->find(id);
    if (!device) return kBadDevice;
    Private::IOProc* const added = m->addedProc(id, proc);
    if (!added) return kNotAdded;
    const PulseMainLoop::Lock lock(m->loop);
    if (device->direction == Direction::input) {
        m->session.startInput({id, proc, added->refCon}, *device);
    } else {
        m->session.startOutput({id, proc, added->refCon}, *device);
    }
    added->isStarted = true;
    return kOk;
}

Status PulseHardware::stop(DeviceId id, AudioDeviceIOProc proc) {
    // A device that is gone is stopped too: its procedure still gets silence.
    Private::IOProc* const added = m->addedProc(id, proc);
    if (!added) return kNotAdded;
    const PulseMainLoop::Lock lock(m->loop);
    m->session.stopInput(id);
    m->session.stopOutput(id);
    added->isStarted = false;
    return kOk;
}

} // namespace veltrano
