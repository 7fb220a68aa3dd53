// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the benchmarks, compares the detection with the plain scan, and large files with small ones.
#include <QApplication>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

/// Prints the medians only, as there are many repetitions, and keeps them.
class KeepingReporter final : public benchmark::ConsoleReporter {
public:
    KeepingReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> shown;
        for (const Run& run : runs) {
            const bool isOnlyOne = run.run_type == Run::RT_Iteration && run.repetitions <= 1;
            if (run.aggregate_name != "median" && !isOnlyOne) continue;
            mMedians[run.run_name.str()] = run.GetAdjustedCPUTime();
            shown.push_back(run);
        }
        if (!shown.empty()) ConsoleReporter::ReportRuns(shown);
    }

    /// Detection of a key beside the work that cannot be saved.
    void compareDetections() const {
        compare("PeriodDetector/key/", "PlainPeakScan/key/", "the plain scan");
        compare("PartialDetector/key/", "TransformsAlone/key/", "its transforms alone");
    }

    void compare(const std::string& ours, const std::string& plain, const char* what) const {
        for (const auto& [name, time] : mMedians) {
            if (!name.starts_with(ours)) continue;
            const auto other = mMedians.find(plain + name.substr(ours.size()));
            if (other == mMedians.end()) continue;
            std::printf("%s takes %.2f times %s (at most 2 wanted).\n", name.c_str(),
                        time / other->second, what);
        }
    }

    void compareFileSizes() const {
        const std::string large = "/67108864", small = "/1048576";
        for (const auto& [name, time] : mMedians) {
            if (!name.ends_with(large)) continue;
            const std::string what = name.substr(0, name.size() - large.size());
            const auto other = mMedians.find(what + small);
            if (other == mMedians.end()) continue;
            std::printf("%s takes %.2f times as long per byte at 64 MB as at 1 MB.\n", what.c_str(),
                        time / other->second / 64);
        }
    }

private:
    std::map<std::string, double> mMedians;
};

/// The offscreen platform remarks on every window that it has no window manager.
void leaveOutRemarks(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.contains(QLatin1String("propagateSizeHints")))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(leaveOutRemarks);
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.compareDetections();
    reporter.compareFileSizes();
    return 0;
}
