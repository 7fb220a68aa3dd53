// SPDX-License-Identifier: GPL-3.0-or-later
// A private sound server for one test.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <sys/types.h>
#include <vector>

namespace veltrano {

/// A process of the test's own. It is killed when this object goes, and when the test dies.
/// Thread: main (the kernel ends it together with the thread that started it).
class TestProcess {
public:
    /// @param environment added to the test's own, "NAME=value" each
    /// @param output where its standard output and error go; empty: nowhere
    TestProcess(const std::vector<std::string>& command,
                const std::vector<std::string>& environment, const std::string& output);
    ~TestProcess();
    TestProcess(const TestProcess&) = delete;
    TestProcess& operator=(const TestProcess&) = delete;

    pid_t id() const { return mId; }
    /// Sends it a signal.
    void signal(int number);
    /// SIGKILL, and waits until it is gone: another may take its place.
    void kill();
    /// Waits for its own end. @returns its exit code, or -1 when it was ended by a signal
    int await();

private:
    pid_t mId = -1; ///< -1: not running any more
};

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
    void add(const std::vector<std::string>& command);

    const Kind mKind;
    const Devices mDevices;
    std::string mFolder;
    std::vector<std::unique_ptr<TestProcess>> mProcesses; ///< in the order of their start
    std::unique_ptr<TestProcess> mPlayer;
};

} // namespace veltrano
