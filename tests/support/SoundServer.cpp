// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/SoundServer.h"

#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <sstream>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace veltrano {

namespace {

using namespace std::chrono_literals;

bool isInstalled(const std::string& program) {
    std::istringstream path(std::getenv("PATH") ? std::getenv("PATH") : "/usr/bin");
    for (std::string folder; std::getline(path, folder, ':');) {
        if (::access((folder + "/" + program).c_str(), X_OK) == 0) return true;
    }
    return false;
}

std::string textOf(const std::string& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

template <class Condition>
bool waitFor(Condition condition, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(2ms);
    }
    return true;
}

/// What both servers load; PulseAudio's null sinks need another word to give sound at once.
std::vector<std::string> modules(SoundServer::Devices devices, const std::string& more) {
    const std::string sink = "module-null-sink rate=44100 " + more;
    std::vector<std::string> names;
    if (devices == SoundServer::Devices::none) return names;
    names.push_back(sink + "sink_name=test sink_properties=device.description=TestSink");
    if (devices == SoundServer::Devices::sink) return names;
    // A sine source would give two seconds of sound at once; a sink keeps time.
    names.push_back(sink + "sink_name=hum sink_properties=device.description=Hum");
    names.push_back("module-remap-source master=hum.monitor source_name=tone "
                    "source_properties=device.description=TestTone");
    return names;
}

/// The tone as raw samples, for a server that cannot make one.
void writeTone(const std::string& file) {
    constexpr int kRate = 8000;
    constexpr int kSeconds = 120; // longer than any test keeps one server
    std::vector<float> samples(std::size_t(kRate) * kSeconds);
    for (std::size_t index = 0; index < samples.size(); ++index) {
        // One second holds 440 whole periods.
        const double phase = double(index % kRate) * 440.0 / kRate;
        samples[index] = float(0.5 * std::sin(2 * std::numbers::pi * phase));
    }
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(samples.data()),
               std::streamsize(samples.size() * sizeof(float)));
}

} // namespace

std::optional<std::string> SoundServer::missing(Kind kind) {
    const std::vector<std::string> needed =
        kind == Kind::pulseAudio
            ? std::vector<std::string>{"pulseaudio", "pactl", "pacat"}
            : std::vector<std::string>{"pipewire",    "wireplumber", "pipewire-pulse",
                                       "dbus-daemon", "pactl",       "pacat"};
    for (const std::string& program : needed) {
        if (!isInstalled(program)) return "the program " + program + " is not installed";
    }
    return std::nullopt;
}

SoundServer::SoundServer(Kind kind, Devices devices) : mKind(kind), mDevices(devices) {
    std::string folder = "/tmp/sound-server-XXXXXX";
    if (!::mkdtemp(folder.data())) return;
    mFolder = folder;
    writeConfiguration();
}

SoundServer::~SoundServer() {
    mPlayer.reset();
    kill();
    std::error_code ignored;
    if (!mFolder.empty()) std::filesystem::remove_all(mFolder, ignored);
}

void SoundServer::writeConfiguration() const {
    namespace fs = std::filesystem;
    for (const char* folder :
         {"/rt/pulse", "/home", "/config/pulse", "/config/pipewire/pipewire-pulse.conf.d",
          "/config/wireplumber/bluetooth.lua.d"})
        fs::create_directories(mFolder + folder);
    for (const char* folder : {"/rt", "/rt/pulse"})
        fs::permissions(mFolder + folder, fs::perms::owner_all);
    std::ofstream(mFolder + "/config/pulse/client.conf") << "autospawn = no\n";
    if (mKind != Kind::pipeWire) return;
    // Without this WirePlumber ends at once on a machine that runs no systemd.
    std::ofstream(mFolder + "/config/wireplumber/bluetooth.lua.d/51-no-logind.lua")
        << "bluez_monitor.properties[\"with-logind\"] = false\n";
    std::ofstream devices(mFolder + "/config/pipewire/pipewire-pulse.conf.d/devices.conf");
    devices << "pulse.cmd = [\n";
    for (const std::string& module : modules(mDevices, ""))
        devices << "{ cmd = \"load-module\" args = \"" << module << "\" flags = [ ] }\n";
    devices << "]\n";
    if (mDevices == Devices::sinkAndTone) writeTone(mFolder + "/tone.raw");
}

std::string SoundServer::address() const { return "unix:" + mFolder + "/rt/pulse/native"; }

std::vector<std::string> SoundServer::environment() const {
    return {"HOME=" + mFolder + "/home",
            "XDG_RUNTIME_DIR=" + mFolder + "/rt",
            "XDG_CONFIG_HOME=" + mFolder + "/config",
            "PULSE_RUNTIME_PATH=" + mFolder + "/rt/pulse",
            "PULSE_SERVER=" + address(),
            "DBUS_SESSION_BUS_ADDRESS=unix:path=" + mFolder + "/rt/bus",
            "DISPLAY="};
}

std::unique_ptr<TestProcess> SoundServer::launched(const std::vector<std::string>& command) const {
    return std::make_unique<TestProcess>(command, environment(), mFolder + "/output");
}

void SoundServer::launchPulseAudio() {
    std::vector<std::string> command = {
        "pulseaudio", "--daemonize=no", "--exit-idle-time=-1", "--system=false",
        // A new server must not mistake the dead one, not yet buried, for a living one.
        "--use-pid-file=no", "-n",
        "--load=module-native-protocol-unix auth-anonymous=1 socket=" + mFolder +
            "/rt/pulse/native"};
    command.push_back("--load=module-cli-protocol-unix socket=" + mFolder + "/rt/pulse/cli");
    // With rewinds a null sink may give nothing for two seconds.
    for (const std::string& module : modules(mDevices, "norewinds=1 "))
        command.push_back("--load=" + module);
    if (mDevices == Devices::sinkAndTone) {
        command.push_back("--load=module-sine sink=hum frequency=440");
    }
    add(command);
}

void SoundServer::launchPipeWire() {
    add({"dbus-daemon", "--session", "--nofork", "--nopidfile",
         "--address=unix:path=" + mFolder + "/rt/bus"});
    const auto exists = [this](const char* socket) {
        return std::filesystem::exists(mFolder + socket);
    };
    waitFor([&] { return exists("/rt/bus"); }, 5s);
    add({"pipewire"});
    waitFor([&] { return exists("/rt/pipewire-0"); }, 5s);
    mSessionManager = launched({"wireplumber"});
    add({"pipewire-pulse"});
    if (mDevices != Devices::sinkAndTone) return;
    add({"sh", "-c",
         "until pacat --playback --raw --format=float32ne --channels=1 --rate=8000 --device=hum "
         "--latency-msec=200 " +
             mFolder + "/tone.raw; do sleep 0.005; done"});
}

void SoundServer::launch() {
    if (mKind == Kind::pulseAudio) return launchPulseAudio();
    // The files of dead sockets would pass for living ones.
    for (const char* socket : {"/rt/bus", "/rt/pipewire-0", "/rt/pulse/native"})
        std::filesystem::remove(mFolder + socket);
    launchPipeWire();
}

bool SoundServer::answers() const {
    const auto sources = control({"list", "short", "sources"});
    if (!sources) return false;
    switch (mDevices) {
    case Devices::none:
        return true;
    case Devices::sinkAndTone:
        return sources->find("\ttone\t") != std::string::npos;
    case Devices::sink:
        return sources->find("\ttest.monitor\t") != std::string::npos;
    }
    return false;
}

bool SoundServer::awaitReady() {
    return waitFor([this] { return answers(); }, 10s);
}

bool SoundServer::start() {
    launch();
    return awaitReady();
}

void SoundServer::kill() {
    while (!mProcesses.empty())
        mProcesses.pop_back();
    killSessionManager();
}

void SoundServer::killSessionManager() { mSessionManager.reset(); }

void SoundServer::signal(int number) {
    for (const auto& process : mProcesses)
        process->signal(number);
    if (mSessionManager) mSessionManager->signal(number);
}

void SoundServer::hang() { signal(SIGSTOP); }

void SoundServer::goOn() { signal(SIGCONT); }

bool SoundServer::endStream(int index) const {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = mFolder + "/rt/pulse/cli";
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int line = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const std::string command = "kill-source-output " + std::to_string(index) + "\n";
    const bool isSent =
        ::connect(line, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        ::write(line, command.data(), command.size()) == ssize_t(command.size());
    std::this_thread::sleep_for(20ms); // a closed line would be served no more
    ::close(line);
    return isSent;
}

std::optional<std::string> SoundServer::control(const std::vector<std::string>& arguments) const {
    std::vector<std::string> command = {"pactl"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    const std::string file = mFolder + "/answer";
    std::filesystem::remove(file);
    TestProcess process(command, environment(), file);
    if (process.await() != 0) return std::nullopt;
    return textOf(file);
}

std::optional<std::string>
SoundServer::loadModule(const std::vector<std::string>& nameAndArguments) {
    std::vector<std::string> command = {"load-module"};
    command.insert(command.end(), nameAndArguments.begin(), nameAndArguments.end());
    auto index = control(command);
    if (index) index->erase(index->find_last_not_of(" \n") + 1);
    return index;
}

bool SoundServer::unloadModule(const std::string& index) {
    return control({"unload-module", index}).has_value();
}

void SoundServer::play(std::span<const float> samples, int sampleRateHz, const std::string& sink) {
    mPlayer.reset();
    const std::string file = mFolder + "/samples.raw";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(samples.data()),
               std::streamsize(samples.size_bytes()));
    const std::vector<std::string> command = {"pacat",
                                              "--playback",
                                              "--raw",
                                              "--format=float32ne",
                                              "--channels=1",
                                              "--rate=" + std::to_string(sampleRateHz),
                                              "--device=" + sink,
                                              "--latency-msec=200",
                                              file};
    mPlayer = std::make_unique<TestProcess>(command, environment(), "");
}

std::string SoundServer::output() const { return textOf(mFolder + "/output"); }

} // namespace veltrano
