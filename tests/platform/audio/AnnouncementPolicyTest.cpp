// SPDX-License-Identifier: GPL-3.0-or-later
// When a change of the device list is announced.
#include "platform/audio/AnnouncementPolicy.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

DeviceRecord device(DeviceId id, Direction direction = Direction::input) {
    DeviceRecord made;
    made.id = id;
    made.direction = direction;
    made.volumes = {1.0f};
    return made;
}

DeviceSnapshot list(std::initializer_list<DeviceId> inputs) {
    DeviceSnapshot made;
    for (const DeviceId id : inputs)
        made.devices.push_back(device(id));
    return made;
}

/// What is done to the policy, second by second.
enum class Event { adopt, lost, empty, one, two, both, louder, silence, sound, starts1, nothing };

struct Step {
    double now;
    Event event;
    bool isAnnounced;         ///< 'dev#' comes of it
    std::size_t publishedNow; ///< devices that the program sees afterwards
};

void perform(Event event, double now, AnnouncementPolicy& policy, bool& isSilent) {
    switch (event) {
    case Event::adopt:
        return policy.adopt();
    case Event::lost:
        return policy.lost();
    case Event::empty:
        return policy.listed(list({}), now);
    case Event::one:
        return policy.listed(list({1}), now);
    case Event::two:
        return policy.listed(list({2}), now);
    case Event::both:
        return policy.listed(list({1, 2}), now);
    case Event::louder: {
        DeviceSnapshot changed = list({1});
        changed.devices[0].volumes[0] = 0.5f;
        return policy.listed(changed, now);
    }
    case Event::silence:
        isSilent = true;
        return;
    case Event::sound:
        isSilent = false;
        return;
    case Event::starts1:
        return policy.started(1);
    case Event::nothing:
        return;
    }
}

void run(const char* name, const std::vector<Step>& steps) {
    AnnouncementPolicy policy;
    bool isSilent = false;
    for (std::size_t index = 0; index < steps.size(); ++index) {
        const Step& step = steps[index];
        perform(step.event, step.now, policy, isSilent);
        const auto changes = policy.decide(step.now, isSilent);
        const bool isAnnounced =
            changes && !changes->empty() && changes->front() == PropertyChange{};
        EXPECT_EQ(isAnnounced, step.isAnnounced) << name << ", step " << index;
        EXPECT_EQ(policy.published().devices.size(), step.publishedNow)
            << name << ", step " << index;
    }
}

TEST(AnnouncementPolicy, TheFirstListIsTakenOverWithoutAnAnnouncement) {
    run("the server answers at start",
        {{0, Event::one, false, 0}, {0, Event::adopt, false, 1}, {1, Event::nothing, false, 1}});
    run("and is not announced later",
        {{0, Event::one, false, 0}, {0, Event::adopt, false, 1}, {1, Event::one, false, 1}});
}

TEST(AnnouncementPolicy, AServerThatComesLateIsAnnounced300MillisecondsAfterItsFirstDevice) {
    run("devices one by one", {{0, Event::adopt, false, 0},
                               {5.0, Event::empty, false, 0},
                               {7.0, Event::one, false, 0},
                               {7.2, Event::both, false, 0},
                               {7.29, Event::nothing, false, 0},
                               {7.3, Event::nothing, true, 2},
                               {7.4, Event::nothing, false, 2}});
    run("the only device goes before it was announced", {{0, Event::adopt, false, 0},
                                                         {7.0, Event::one, false, 0},
                                                         {7.1, Event::empty, false, 0},
                                                         {7.4, Event::nothing, false, 0},
                                                         {8.0, Event::two, false, 0},
                                                         {8.3, Event::nothing, true, 1}});
}

TEST(AnnouncementPolicy, AnyOtherChangeIsAnnouncedAtOnce) {
    run("hot-plug", {{0, Event::one, false, 0},
                     {0, Event::adopt, false, 1},
                     {1, Event::both, true, 2},
                     {2, Event::two, true, 1},
                     {3, Event::both, true, 2}});
    run("the device that ran goes, another stays", {{0, Event::both, false, 0},
                                                    {0, Event::adopt, false, 2},
                                                    {1, Event::starts1, false, 2},
                                                    {2, Event::silence, false, 2},
                                                    {2, Event::two, true, 1}});
    run("the last input goes while none runs",
        {{0, Event::one, false, 0}, {0, Event::adopt, false, 1}, {1, Event::empty, true, 0}});
}

TEST(AnnouncementPolicy, AnEmptiedListWaitsForTheEndOfTheSilence) {
    run("server lost", {{0, Event::one, false, 0},
                        {0, Event::adopt, false, 1},
                        {1, Event::silence, false, 1},
                        {1, Event::lost, false, 1},
                        {2, Event::nothing, false, 1},
                        {2.5, Event::sound, true, 0},
                        {3, Event::nothing, false, 0}});
    run("unplugged and not back", {{0, Event::one, false, 0},
                                   {0, Event::adopt, false, 1},
                                   {1, Event::silence, false, 1},
                                   {1, Event::empty, false, 1},
                                   {2.5, Event::sound, true, 0}});
    run("unplugged and back within the silence", {{0, Event::one, false, 0},
                                                  {0, Event::adopt, false, 1},
                                                  {1, Event::silence, false, 1},
                                                  {1, Event::empty, false, 1},
                                                  {1.5, Event::one, false, 1},
                                                  {1.6, Event::sound, false, 1}});
    run("server lost while nothing runs",
        {{0, Event::one, false, 0}, {0, Event::adopt, false, 1}, {1, Event::lost, true, 0}});
}

TEST(AnnouncementPolicy, AnOutputThatStaysDoesNotShowThatTheLastInputWent) {
    AnnouncementPolicy policy;
    DeviceSnapshot both = list({1});
    both.devices.push_back(device(2, Direction::output));
    policy.listed(both, 0);
    policy.adopt();
    both.devices.erase(both.devices.begin());
    policy.listed(both, 1);
    EXPECT_EQ(policy.decide(1, true), std::nullopt);
    EXPECT_NE(policy.decide(2.5, false), std::nullopt);
}

TEST(AnnouncementPolicy, AfterARestartItWaitsForTheDeviceThatRanLast) {
    run("back within the silence", {{0, Event::one, false, 0},
                                    {0, Event::adopt, false, 1},
                                    {0, Event::starts1, false, 1},
                                    {1, Event::silence, false, 1},
                                    {1, Event::lost, false, 1},
                                    {1.1, Event::empty, false, 1},
                                    {1.2, Event::two, false, 1},
                                    {1.25, Event::both, true, 2},
                                    {1.3, Event::sound, false, 2},
                                    {1.6, Event::nothing, false, 2}});
    run("it alone, as it was", {{0, Event::one, false, 0},
                                {0, Event::adopt, false, 1},
                                {0, Event::starts1, false, 1},
                                {1, Event::silence, false, 1},
                                {1, Event::lost, false, 1},
                                {1.1, Event::one, true, 1}});
    run("it stays away", {{0, Event::one, false, 0},
                          {0, Event::adopt, false, 1},
                          {0, Event::starts1, false, 1},
                          {1, Event::silence, false, 1},
                          {1, Event::lost, false, 1},
                          {1.2, Event::two, false, 1},
                          {1.5, Event::nothing, true, 1}});
    run("back long after the silence", {{0, Event::one, false, 0},
                                        {0, Event::adopt, false, 1},
                                        {0, Event::starts1, false, 1},
                                        {1, Event::silence, false, 1},
                                        {1, Event::lost, false, 1},
                                        {2.5, Event::sound, true, 0},
                                        {9.0, Event::empty, false, 0},
                                        {9.1, Event::one, true, 1}});
}

TEST(AnnouncementPolicy, ChangesOfADeviceAreAnnouncedAsSuch) {
    AnnouncementPolicy policy;
    bool isSilent = false;
    perform(Event::one, 0, policy, isSilent);
    policy.adopt();
    perform(Event::louder, 1, policy, isSilent);
    const auto changes = policy.decide(1, false);
    ASSERT_TRUE(changes);
    EXPECT_EQ(*changes,
              (std::vector<PropertyChange>{{1, 1, Direction::input, PropertyCode::volumeScalar}}));
    EXPECT_EQ(policy.published().devices[0].volumes[0], 0.5f);
}

TEST(AnnouncementPolicy, ANewDefaultIsPublishedButNotAnnounced) {
    AnnouncementPolicy policy;
    policy.listed(list({1, 2}), 0);
    policy.adopt();
    DeviceSnapshot changed = list({1, 2});
    changed.defaultInput = 2;
    policy.listed(changed, 1);
    const auto changes = policy.decide(1, false);
    ASSERT_TRUE(changes);
    EXPECT_TRUE(changes->empty());
    EXPECT_EQ(policy.published().defaultInput, 2u);
}

TEST(AnnouncementPolicy, TheDeadlineIsThatOfTheFirstDevice) {
    AnnouncementPolicy policy;
    EXPECT_EQ(policy.deadline(0), std::nullopt);
    policy.listed(list({1}), 2.0);
    policy.listed(list({1, 2}), 2.1);
    EXPECT_EQ(policy.deadline(2.1), 2.0 + AnnouncementPolicy::kSettleSeconds);
    EXPECT_EQ(policy.deadline(2.5), std::nullopt) << "never in the past";
    policy.decide(2.3, false);
    EXPECT_EQ(policy.deadline(2.0), std::nullopt) << "announced";
}

} // namespace
} // namespace veltrano
