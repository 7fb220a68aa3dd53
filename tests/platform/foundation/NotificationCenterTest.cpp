// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/NotificationCenter.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace veltrano {
namespace {

class NotificationCenterTest : public testing::Test {
protected:
    using Observation = NotificationCenter::Observation;

    Observation listing(std::string_view name, std::string entry) {
        return center.observe(name, [this, entry](const std::any&) { heard.push_back(entry); });
    }
    std::vector<std::string> takeHeard() { return std::exchange(heard, {}); }

    NotificationCenter center;
    std::vector<std::string> heard;
};

using Heard = std::vector<std::string>;

TEST_F(NotificationCenterTest, DeliversAtOnceInTheOrderOfRegistration) {
    const Observation a = listing("pitch", "first");
    const Observation b = listing("pitch", "second");
    const Observation c = listing("stretch", "other name");
    center.post("pitch");
    EXPECT_EQ(takeHeard(), (Heard{"first", "second"}));
    center.post("stretch");
    EXPECT_EQ(takeHeard(), Heard{"other name"});
    center.post("nobody");
    EXPECT_EQ(takeHeard(), Heard{});
}

TEST_F(NotificationCenterTest, HandsTheObjectOver) {
    std::optional<int> object;
    const Observation a =
        center.observe("n", [&](const std::any& given) { object = std::any_cast<int>(given); });
    center.post("n", 42);
    EXPECT_EQ(object, 42);
}

TEST_F(NotificationCenterTest, PostsWithoutAnObjectUnlessGivenOne) {
    bool isEmpty = false;
    const Observation a =
        center.observe("n", [&](const std::any& given) { isEmpty = !given.has_value(); });
    center.post("n");
    EXPECT_TRUE(isEmpty);
}

TEST_F(NotificationCenterTest, EndsWithTheObservation) {
    { const Observation a = listing("n", "gone"); }
    Observation b = listing("n", "reset");
    b.reset();
    Observation c = listing("n", "replaced");
    c = listing("n", "replacement");
    center.post("n");
    EXPECT_EQ(takeHeard(), Heard{"replacement"});
}

TEST_F(NotificationCenterTest, MovedObservationLivesOn) {
    Observation a = listing("n", "moved");
    {
        const Observation b = std::move(a);
        center.post("n");
        EXPECT_EQ(takeHeard(), Heard{"moved"});
    }
    center.post("n");
    EXPECT_EQ(takeHeard(), Heard{});
}

TEST_F(NotificationCenterTest, HandlerMayEndItself) {
    Observation self;
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    self = center.observe("n", [this, &self, &watched, held](const std::any&) {
        heard.push_back("once");
        self.reset();
        heard.push_back(watched.expired() ? "destroyed while it runs" : "still running");
    });
    held.reset();
    const Observation after = listing("n", "after");
    center.post("n");
    center.post("n");
    EXPECT_EQ(takeHeard(), (Heard{"once", "still running", "after", "after"}));
    EXPECT_TRUE(watched.expired());
}

TEST_F(NotificationCenterTest, HandlerThatIsEndedDuringThePostIsNotCalled) {
    Observation later;
    const Observation first = center.observe("n", [&](const std::any&) { later.reset(); });
    later = listing("n", "later");
    const Observation last = listing("n", "last");
    center.post("n");
    EXPECT_EQ(takeHeard(), Heard{"last"});
}

TEST_F(NotificationCenterTest, HandlerAddedDuringThePostHearsTheNextOne) {
    std::vector<Observation> added;
    const Observation adder = center.observe("n", [&](const std::any&) {
        heard.push_back("adder");
        if (added.empty()) added.push_back(listing("n", "added"));
    });
    center.post("n");
    EXPECT_EQ(takeHeard(), Heard{"adder"});
    center.post("n");
    EXPECT_EQ(takeHeard(), (Heard{"adder", "added"}));
}

TEST_F(NotificationCenterTest, HandlerMayPost) {
    Observation inner = listing("inner", "inner");
    const Observation outer = center.observe("outer", [&](const std::any&) {
        heard.push_back("before");
        center.post("inner");
        inner.reset(); // ended within the post within the post
        center.post("inner");
        heard.push_back("after");
    });
    const Observation next = listing("outer", "next");
    center.post("outer");
    EXPECT_EQ(takeHeard(), (Heard{"before", "inner", "after", "next"}));
}

TEST_F(NotificationCenterTest, HandlerMayPostItsOwnName) {
    int depth = 0;
    const Observation self = center.observe("n", [&](const std::any&) {
        if (++depth < 3) center.post("n");
    });
    const Observation other = listing("n", "other");
    center.post("n");
    EXPECT_EQ(depth, 3);
    EXPECT_EQ(takeHeard(), (Heard{"other", "other", "other"}));
}

TEST_F(NotificationCenterTest, EndedHandlerLetsGoOfWhatItHeld) {
    auto held = std::make_shared<int>(1);
    Observation a = center.observe("n", [held](const std::any&) {});
    EXPECT_EQ(held.use_count(), 2);
    a.reset();
    EXPECT_EQ(held.use_count(), 1);
}

TEST(NotificationCenterLife, ObservationMayOutliveTheCenter) {
    NotificationCenter::Observation left;
    {
        NotificationCenter center;
        left = center.observe("n", [](const std::any&) {});
    }
    left.reset(); // the sanitizers would object
}

} // namespace
} // namespace veltrano
