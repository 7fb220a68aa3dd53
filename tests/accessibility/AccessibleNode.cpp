// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/accessibility/AccessibleNode.h"

#include <atspi/atspi.h>
#include <thread>

namespace veltrano {

namespace {

using std::chrono::steady_clock;

/// A string that the library has allocated; null is empty.
std::string taken(char* text) {
    std::string copy = text ? text : "";
    g_free(text);
    return copy;
}

AtspiStateType typeOf(NodeState state) {
    switch (state) {
    case NodeState::showing:
        return ATSPI_STATE_SHOWING;
    case NodeState::focusable:
        return ATSPI_STATE_FOCUSABLE;
    case NodeState::focused:
        return ATSPI_STATE_FOCUSED;
    case NodeState::checked:
        return ATSPI_STATE_CHECKED;
    case NodeState::editable:
        return ATSPI_STATE_EDITABLE;
    }
    return ATSPI_STATE_INVALID;
}

/// Serves what has come in, and waits a little.
void turn() {
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

void keep(AtspiEvent* event, void* events) {
    static_cast<std::vector<AccessibleEvent>*>(events)->push_back(
        {taken(g_strdup(event->type)),
         AccessibleNode(static_cast<AtspiAccessible*>(g_object_ref(event->source))),
         steady_clock::now()});
    g_boxed_free(ATSPI_TYPE_EVENT, event);
}

} // namespace

AccessibleNode::AccessibleNode(_AtspiAccessible* object) {
    if (object) mObject = {object, [](AtspiAccessible* it) { g_object_unref(it); }};
}

std::string AccessibleNode::role() const {
    return taken(atspi_accessible_get_role_name(mObject.get(), nullptr));
}

std::string AccessibleNode::name() const {
    return taken(atspi_accessible_get_name(mObject.get(), nullptr));
}

std::string AccessibleNode::description() const {
    return taken(atspi_accessible_get_description(mObject.get(), nullptr));
}

std::optional<std::string> AccessibleNode::text() const {
    AtspiText* text = atspi_accessible_get_text_iface(mObject.get());
    if (!text) return std::nullopt;
    const int length = atspi_text_get_character_count(text, nullptr);
    std::string content = taken(atspi_text_get_text(text, 0, length, nullptr));
    g_object_unref(text);
    return content;
}

std::optional<double> AccessibleNode::value() const {
    AtspiValue* value = atspi_accessible_get_value_iface(mObject.get());
    if (!value) return std::nullopt;
    const double number = atspi_value_get_current_value(value, nullptr);
    g_object_unref(value);
    return number;
}

bool AccessibleNode::is(NodeState state) const {
    AtspiStateSet* states = atspi_accessible_get_state_set(mObject.get());
    if (!states) return false;
    const bool isSet = atspi_state_set_contains(states, typeOf(state)) != 0;
    g_object_unref(states);
    return isSet;
}

std::optional<std::pair<int, int>> AccessibleNode::middle() const {
    AtspiComponent* component = atspi_accessible_get_component_iface(mObject.get());
    if (!component) return std::nullopt;
    AtspiRect* place = atspi_component_get_extents(component, ATSPI_COORD_TYPE_SCREEN, nullptr);
    g_object_unref(component);
    if (!place) return std::nullopt;
    const auto middle = std::pair(place->x + place->width / 2, place->y + place->height / 2);
    g_free(place);
    return middle;
}

int AccessibleNode::childCount() const {
    return atspi_accessible_get_child_count(mObject.get(), nullptr);
}

AccessibleNode AccessibleNode::child(int index) const {
    return AccessibleNode(atspi_accessible_get_child_at_index(mObject.get(), index, nullptr));
}

std::vector<AccessibleNode> AccessibleNode::children() const {
    std::vector<AccessibleNode> children;
    const int count = childCount();
    for (int i = 0; i < count; ++i) {
        if (AccessibleNode node = child(i)) children.push_back(std::move(node));
    }
    return children;
}

AccessibleNode AccessibleNode::parent() const {
    return AccessibleNode(atspi_accessible_get_parent(mObject.get(), nullptr));
}

void AccessibleNode::walk(const Visit& visit, const std::string& path) const {
    const std::string here = path + " > " + role() + " \"" + name() + '"';
    if (!visit(*this, here)) return;
    for (const AccessibleNode& node : children())
        node.walk(visit, here);
}

AccessibleNode AccessibleNode::find(const std::function<bool(const AccessibleNode&)>& fits) const {
    for (const AccessibleNode& node : children()) {
        if (fits(node)) return node;
        if (AccessibleNode found = node.find(fits)) return found;
    }
    return {};
}

AccessibleNode AccessibleNode::findByName(const std::string& start) const {
    return find([&](const AccessibleNode& node) { return node.name().starts_with(start); });
}

namespace accessible {

bool connect() { return atspi_init() == 0; }

void disconnect() { atspi_exit(); }

AccessibleNode program(const std::string& name) {
    turn();
    const AccessibleNode desktop(atspi_get_desktop(0));
    for (const AccessibleNode& node : desktop.children()) {
        if (node.name() == name) return node;
    }
    return {};
}

bool await(const std::function<bool()>& condition, double seconds) {
    const std::chrono::duration<double> patience(seconds);
    const auto begin = steady_clock::now();
    while (!condition()) {
        if (steady_clock::now() - begin > patience) return false;
        turn();
    }
    return true;
}

std::vector<AccessibleEvent> listen(const std::vector<std::string>& types, double seconds) {
    std::vector<AccessibleEvent> events;
    AtspiEventListener* listener = atspi_event_listener_new(keep, &events, nullptr);
    for (const std::string& type : types)
        atspi_event_listener_register(listener, type.c_str(), nullptr);
    const auto end = steady_clock::now() + std::chrono::duration<double>(seconds);
    while (steady_clock::now() < end)
        turn();
    for (const std::string& type : types)
        atspi_event_listener_deregister(listener, type.c_str(), nullptr);
    g_object_unref(listener);
    return events;
}

} // namespace accessible
} // namespace veltrano
