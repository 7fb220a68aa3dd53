// SPDX-License-Identifier: GPL-3.0-or-later
// A program that is killed while it saves leaves a whole file: the old or the new one.
#include "tests/platform/desktop/DocumentRig.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <random>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>

namespace veltrano {
namespace {

/// What the saving process tells the test.
struct Progress {
    std::atomic<long> saves{0};
    std::atomic<bool> isSaving{false};
};

/// Two contents, long enough that writing one takes a while, of different lengths.
const std::string kContents[] = {std::string(1'500'000, 'a') + "end of a\n",
                                 std::string(900'000, 'b') + "end of b\n"};

/// How long to wait until the process is killed.
using Delay = std::uniform_int_distribution<int>;
constexpr int kLongestMicroseconds = 40'000; // several saves

class KilledSaveTest : public DocumentRig {
protected:
    KilledSaveTest()
        : progress(new (::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE,
                               MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Progress) {}
    ~KilledSaveTest() override { ::munmap(progress, sizeof(Progress)); }

    /// A process that opens the file and saves the two contents by turns.
    pid_t startSaving(const std::string& path) {
        progress->saves = 0;
        const pid_t parent = ::getpid();
        const pid_t child = ::fork();
        if (child != 0) return child;
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent) std::_Exit(2); // it died in between
        TextDocument document(services());
        if (!document.readFromFile(path, "Test Text")) std::_Exit(3);
        for (std::size_t turn = document.text == kContents[0];; turn = 1 - turn) {
            document.setText(kContents[turn]);
            progress->isSaving = true;
            if (!document.saveDocument()) std::_Exit(4);
            progress->isSaving = false;
            ++progress->saves;
        }
    }
    /// @return whether it was the signal that ended the process
    static bool kill(pid_t process) {
        int status = 0;
        return ::kill(process, SIGKILL) == 0 && ::waitpid(process, &status, 0) == process &&
               WIFSIGNALED(status);
    }
    /// Removes what a killed save has left beside the file; nothing of it may pass for a document.
    /// @return how many files
    int removeLeftovers() {
        int count = 0;
        for (const std::string& name : files.names()) {
            if (name == "scale.text") continue;
            EXPECT_NE(std::filesystem::path(name).extension(), ".text") << name;
            count += std::filesystem::remove(files.path(name));
        }
        return count;
    }

    Progress* const progress;
};

TEST_F(KilledSaveTest, TheFileIsAlwaysWhole) {
    const int kills = std::getenv("VELTRANO_SOAK") ? 500 : 50;
    const std::string path = files.file("scale.text", kContents[0]);
    std::minstd_rand random(std::random_device{}());
    int duringASave = 0;
    int found[] = {0, 0};
    long saves = 0;
    int leftovers = 0;
    for (int round = 0; round < kills; ++round) {
        const pid_t process = startSaving(path);
        while (progress->saves == 0)
            std::this_thread::yield();
        std::this_thread::sleep_for(
            std::chrono::microseconds(Delay(0, kLongestMicroseconds)(random)));
        ASSERT_TRUE(kill(process)) << "it ended by itself: a save failed";
        duringASave += progress->isSaving;
        saves += progress->saves;
        const std::string left = contentsOf(path);
        ASSERT_TRUE(left == kContents[0] || left == kContents[1])
            << "kill " << round << " left " << left.size() << " bytes";
        ++found[left == kContents[1]];
        leftovers += removeLeftovers();
    }
    std::printf("%d kills, %d of them during a save (%ld saves were finished); the file was the "
                "one %d times, the other %d times; %d leftovers, none of its kind\n",
                kills, duringASave, saves, found[0], found[1], leftovers);
    EXPECT_GT(duringASave, kills / 2) << "most are to meet a save";
    EXPECT_GT(found[0], 0);
    EXPECT_GT(found[1], 0);
}

} // namespace
} // namespace veltrano
