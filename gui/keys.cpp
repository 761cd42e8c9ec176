#include "gui/keys.hpp"

#include <cstdint>

#include "gui/tree_window.hpp"
#include "toolkit/frame.hpp"

namespace brindle {

TreeWindow &window_of(const tk::Object &object) {
    return *object.key_as<TreeWindow>(Key::tree_window);
}

void set_window(tk::Object &object, TreeWindow &tw) {
    object.set_key(Key::tree_window, &tw);
}

Node *node_of(const tk::Object &object) {
    return object.key_as<Node>(Key::node);
}

void set_node(tk::Object &object, Node *node) {
    object.set_key(Key::node, node);
}

// Numbers are kept one higher than they are: an absent key is a null.
int number_of(const tk::Object &object, Key key) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(object.key(key))) - 1;
}

void set_number(tk::Object &object, Key key, int number) {
    object.set_key(key, reinterpret_cast<void *>(static_cast<std::intptr_t>(number) + 1));
}

tk::CommandFrame &frame_to_hide(const tk::Object &object) {
    return *object.key_as<tk::CommandFrame>(Key::frame_to_hide);
}

void set_frame_to_hide(tk::Object &object, tk::CommandFrame &frame) {
    object.set_key(Key::frame_to_hide, &frame);
}

FieldCommand handler_of(const tk::Object &object) {
    return reinterpret_cast<FieldCommand>(object.key(Key::handler));
}

void set_handler(tk::Object &object, FieldCommand handler) {
    object.set_key(Key::handler, reinterpret_cast<void *>(handler));
}

tk::TextField *text_field_of(const tk::Object &object) {
    return object.key_as<tk::TextField>(Key::text_field);
}

void set_text_field(tk::Object &object, tk::TextField &field) {
    object.set_key(Key::text_field, &field);
}

tk::TextField &query_item(const tk::Frame &main_frame) {
    return *main_frame.key_as<tk::TextField>(Key::query_item);
}

tk::TextWindow &output_window(const tk::Frame &main_frame) {
    return *main_frame.key_as<tk::TextWindow>(Key::output_window);
}

tk::Button &edit_button(const tk::Frame &frame) {
    return *frame.key_as<tk::Button>(Key::edit_button);
}

}  // namespace brindle
