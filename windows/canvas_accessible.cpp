#include "windows/canvas_accessible.hpp"

#include <unordered_map>

#include "drawing/text.hpp"
#include "model/punctuation.hpp"
#include "windows/canvas.hpp"

namespace brindle {
namespace {

// The canvas. It hands out the nodes' interfaces, and takes those back whose nodes are no longer shown.
class CanvasAccessible final : public QAccessibleWidget {
  public:
    explicit CanvasAccessible(Canvas *canvas) : QAccessibleWidget(canvas, QAccessible::Tree) {}
    ~CanvasAccessible() override {
        for (const auto &[node, id] : items_) QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return root() ? 1 : 0; }
    QAccessibleInterface *child(int index) const override { return index == 0 ? item(root()) : nullptr; }
    int indexOfChild(const QAccessibleInterface *child) const override {
        return child && child == item(root()) ? 0 : -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override {
        if (!root()) return nullptr;
        const QPointF at = canvas()->viewport()->mapFromGlobal(QPoint(x, y));
        return item(canvas()->picture().hit(canvas()->picture_place(at)).node);
    }
    QAccessibleInterface *focusChild() const override {
        return canvas()->hasFocus() ? item(canvas()->focus_node()) : nullptr;
    }

    // Null for a node that is not shown.
    QAccessibleInterface *item(const Node *node) const;

  private:
    Canvas *canvas() const { return static_cast<Canvas *>(widget()); }
    const Node *root() const {
        canvas()->lay_out_now();
        return canvas()->picture().root();
    }
    void forget_hidden() const {
        std::erase_if(items_, [layout = canvas()->picture().layout()](const auto &item) {
            if (layout->find(item.first)) return false;
            QAccessible::deleteAccessibleInterface(item.second);
            return true;
        });
    }

    mutable std::unordered_map<const Node *, QAccessible::Id> items_;
    mutable const Node *root_of_items_ = nullptr;
};

class NodeAccessible final : public QAccessibleInterface {
  public:
    NodeAccessible(Canvas *canvas, const Node *node) : canvas_(canvas), node_(node) {}

    bool isValid() const override { return placed() != nullptr; }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return canvas_ ? canvas_->window()->windowHandle() : nullptr; }
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override {
        if (!placed()) return {};
        return {canvas_->viewport()->mapToGlobal(view_box().topLeft()), view_box().size()};
    }

    QAccessibleInterface *parent() const override {
        const PlacedNode *here = placed();
        if (!here) return nullptr;
        return here->mother < 0 ? tree() : tree()->item(node_->mother());
    }
    int childCount() const override {
        int count = 0;
        for (const Node *d = first(); d; d = next(d)) ++count;
        return count;
    }
    QAccessibleInterface *child(int index) const override {
        const Node *daughter = index < 0 ? nullptr : first();
        for (; daughter && index > 0; --index) daughter = next(daughter);
        return daughter ? tree()->item(daughter) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override {
        const auto *item = dynamic_cast<const NodeAccessible *>(child);
        return item && item->placed() && item->node_->mother() == node_ ? item->node_->position() - 1 : -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override {
        QAccessibleInterface *item = placed() ? tree()->childAt(x, y) : nullptr;
        return indexOfChild(item) >= 0 ? item : nullptr;
    }

  private:
    // Null: the node is no longer shown, and may be no more.
    const PlacedNode *placed() const {
        if (!canvas_) return nullptr;
        canvas_->lay_out_now();
        const TreeLayout *layout = canvas_->picture().layout();
        return layout ? layout->find(node_) : nullptr;
    }
    QRect view_box() const { return canvas_->view_box_of(canvas_->picture().node_box(node_)); }
    CanvasAccessible *tree() const {
        return static_cast<CanvasAccessible *>(QAccessible::queryAccessibleInterface(canvas_));
    }
    const Node *first() const { return placed() ? node_->dtrs() : nullptr; }
    const Node *next(const Node *daughter) const {
        return next_shown_sister(daughter, canvas_->picture().layout()->show_punctuation);
    }

    QPointer<Canvas> canvas_;
    const Node *node_;
};

QAccessible::State NodeAccessible::state() const {
    QAccessible::State state;
    if (!placed()) {
        state.invalid = true;
        return state;
    }
    state.selectable = state.focusable = true;
    state.selected = node_->selected();
    state.focused = canvas_->focus_node() == node_ && canvas_->hasFocus();
    state.expandable = state.expanded = node_->dtrs() != nullptr;
    state.offscreen = !canvas_->viewport()->rect().intersects(view_box());
    return state;
}

QString NodeAccessible::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name || !placed()) return {};
    QString name = to_shown(node_->syn()->view());
    for (const Label *label : {node_->sem(), node_->lex()})
        if (label) name += QStringLiteral(", ") + to_shown(label->view());
    return name;
}

QAccessibleInterface *CanvasAccessible::item(const Node *node) const {
    const Node *shown_root = root();
    if (!node || !shown_root || !canvas()->picture().layout()->find(node)) return nullptr;
    if (shown_root != root_of_items_) forget_hidden();
    root_of_items_ = shown_root;
    const auto [at, is_new] = items_.try_emplace(node);
    if (is_new) at->second = QAccessible::registerAccessibleInterface(new NodeAccessible(canvas(), node));
    return QAccessible::accessibleInterface(at->second);
}

}  // namespace

void install_canvas_accessibility() {
    QAccessible::installFactory([](const QString &, QObject *object) -> QAccessibleInterface * {
        auto *canvas = qobject_cast<Canvas *>(object);
        return canvas ? new CanvasAccessible(canvas) : nullptr;
    });
}

void tell_focus_node(Canvas &canvas) {
    if (!QAccessible::isActive() || !canvas.hasFocus()) return;
    auto *tree = QAccessible::queryAccessibleInterface(&canvas);
    if (QAccessibleInterface *item = tree ? tree->focusChild() : nullptr) {
        QAccessibleEvent event(item, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

}  // namespace brindle
