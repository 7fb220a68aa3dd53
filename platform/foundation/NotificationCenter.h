// SPDX-License-Identifier: GPL-3.0-or-later
// Announces that something changed to whoever asked to hear of it.
#pragma once

#include <any>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>

namespace veltrano {

/// Delivers notifications by name, at once, in the order of registration.
///
/// Thread: main. Owns: the handlers, until their Observation ends.
/// Edges: a handler may observe, end observations (its own included) and post while it runs; a
/// handler added during a post does not hear that post.
class NotificationCenter {
public:
    /// @param object what the notification is about, often empty
    using Handler = std::function<void(const std::any& object)>;

    /// Ends its observation when it is destroyed or reset. May outlive the centre.
    class Observation {
    public:
        Observation() = default;
        Observation(Observation&&) noexcept = default;
        Observation& operator=(Observation&& other) noexcept;
        ~Observation() { reset(); }
        void reset() noexcept;

    private:
        friend class NotificationCenter;
        std::weak_ptr<Handler> mHandler;
    };

    [[nodiscard]] Observation observe(std::string_view name, Handler handler);
    void post(std::string_view name, const std::any& object = {});

private:
    struct Entry {
        std::string name;
        std::shared_ptr<Handler> handler;
    };
    std::list<Entry> mEntries;
    int mPostDepth = 0; ///< entries are swept only when no post is under way
};

} // namespace veltrano
