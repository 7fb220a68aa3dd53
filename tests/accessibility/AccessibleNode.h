// SPDX-License-Identifier: GPL-3.0-or-later
// What an assistive technology sees of a program.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

struct _AtspiAccessible; // NOLINT: that library's own name

namespace veltrano {

enum class NodeState { showing, focusable, focused, checked, editable };

/// One object of a program's tree. Every question goes to the program. Thread: main.
class AccessibleNode {
public:
    AccessibleNode() = default;
    /// Takes the reference over. Null: no node.
    explicit AccessibleNode(_AtspiAccessible* object);

    explicit operator bool() const { return mObject != nullptr; }
    std::string role() const; ///< as "push button"
    std::string name() const;
    std::string description() const;
    std::optional<std::string> text() const; ///< nullopt: it is none
    std::optional<double> value() const;     ///< nullopt: it has none
    bool is(NodeState state) const;
    /// Its middle on the screen, in pixels; nullopt: it has no place.
    std::optional<std::pair<int, int>> middle() const;
    int childCount() const;
    AccessibleNode child(int index) const;
    std::vector<AccessibleNode> children() const;
    AccessibleNode parent() const;

    /// Calls @p visit with this and all below it, and @p path, the names and roles on the way.
    /// @param visit false: not what is below
    using Visit = std::function<bool(const AccessibleNode&, const std::string& path)>;
    void walk(const Visit& visit, const std::string& path = {}) const;
    /// The first one below that fits; no node if none does.
    AccessibleNode find(const std::function<bool(const AccessibleNode&)>& fits) const;
    AccessibleNode findByName(const std::string& start) const; ///< how its name begins

private:
    std::shared_ptr<_AtspiAccessible> mObject;
};

/// What a program has told unasked.
struct AccessibleEvent {
    std::string type; ///< as "object:property-change:accessible-name"
    AccessibleNode source;
    std::chrono::steady_clock::time_point time;
};

namespace accessible {

bool connect(); ///< to the buses that the environment leads to
void disconnect();
/// The program of that name; no node if it is not there.
AccessibleNode program(const std::string& name);
/// Waits until @p condition holds. @return whether it did within @p seconds
bool await(const std::function<bool()>& condition, double seconds = 20);
/// What is told of those types within @p seconds.
std::vector<AccessibleEvent> listen(const std::vector<std::string>& types, double seconds);

} // namespace accessible
} // namespace veltrano
