// SPDX-License-Identifier: GPL-3.0-or-later
// A private sound server for one test.
#pragma once

#include "tests/support/TestProcess.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace veltrano {

/// PulseAudio, or PipeWire with its session manager and its PulseAudio server, on sockets of its
/// own in a fresh folder. It is started by start(), and ended with its processes by the destructor.
///
/// Its devices are described as "TestSink", "Monitor of TestSink", "TestTone", "Hum" and
/// "Monitor of Hum".
/// Thread: main.
class SoundServer {
public:
    enum class Kind { pulseAudio, pipeWire };
    enum class Devices {
        none,       ///< PipeWire puts in a sink of its own then
        sink,       ///< "test" with its monitor "test.monitor"
        sinkAndTone ///< and the source "tone", a 440 Hz sine that is played into a sink "hum"
    };

    /// The reason why a server of this kind cannot be started here, or nullopt.
    static std::optional<std::string> missing(Kind kind);

    explicit SoundServer(Kind kind, Devices devices = Devices::sinkAndTone);
    ~SoundServer();
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;

    /// As in PULSE_SERVER; known before the start.
    std::string address() const;
    /// @returns whether clients are answered and the devices are there, within 10 s
    bool start();
    /// Starts the processes and does not wait.
    void launch();
    /// Waits for what start() waits for.
    bool awaitReady();
    /// SIGKILL to all processes of the server.
    void kill();
    /// PipeWire: SIGKILL to the session manager alone, which joins streams to devices; start
    /// another.
    void killSessionManager();
    void startSessionManager();
    /// PulseAudio: ends a recording stream from the server's side; the device stays.
    bool endStream(int index) const;
    /// SIGSTOP and SIGCONT: the server hangs, and goes on.
    void hang();
    void goOn();

    /// @returns the module's index, or nullopt when it was refused
    std::optional<std::string> loadModule(const std::vector<std::string>& nameAndArguments);
    bool unloadModule(const std::string& index);
    /// Runs pactl. @returns its output, or nullopt when it failed
    std::optional<std::string> control(const std::vector<std::string>& arguments) const;

    /// Starts to play mono samples into a sink; it goes on until they end or the server ends.
    void play(std::span<const float> samples, int sampleRateHz, const std::string& sink);

    /// Standard output and error of the server's processes.
    std::string output() const;

private:
    std::vector<std::string> environment() const;
    void writeConfiguration() const;
    void launchPulseAudio();
    void launchPipeWire();
    bool answers() const;
    std::unique_ptr<TestProcess> launched(const std::vector<std::string>& command) const;
    void add(const std::vector<std::string>& command) { mProcesses.push_back(launched(command)); }
    void signal(int number);

    const Kind mKind;
    const Devices mDevices;
    std::string mFolder;
    std::vector<std::unique_ptr<TestProcess>> mProcesses; ///< in the order of their start
    std::unique_ptr<TestProcess> mSessionManager;         ///< PipeWire
    std::unique_ptr<TestProcess> mPlayer;
};

} // namespace veltrano
