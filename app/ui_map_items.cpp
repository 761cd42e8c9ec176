#include "app/ui_map_items.hpp"

#include <algorithm>

#include <QtWidgets>

#include "drawing/text.hpp"
#include "model/path.hpp"
#include "windows/canvas.hpp"
#include "windows/number_slider.hpp"

namespace brindle {

void MapText::add(QString field) {
    text_ += field.replace('\n', QLatin1String("\\n")).replace('\t', QLatin1String("\\t")) + '\t';
}

void MapText::add(const QRect &box) {
    for (const int number : {box.x(), box.y(), box.width(), box.height()}) add(number);
}

int map_id(QWidget &window) {
    static constexpr const char *property = "ui_map_id";
    static int last = 0;
    if (!window.property(property).isValid()) window.setProperty(property, ++last);
    return window.property(property).toInt();
}

namespace {

// A part of the widget in pixels of the screen. Screens lie where the server says; what is on them is scaled.
QRect box_on_screen(const QWidget &widget, const QRect &part) {
    const QPointF origin = widget.screen()->geometry().topLeft();
    const double ratio = widget.devicePixelRatio();
    const QPointF corner = widget.mapToGlobal(QPointF(part.topLeft())) - origin;
    return {(origin + corner * ratio).toPoint(), (QSizeF(part.size()) * ratio).toSize()};
}

QString without_mnemonic(QString label) {
    static const QRegularExpression mark("&(.)");
    return label.replace(mark, "\\1");
}

// Walks the widgets of one window.
class ItemWriter {
  public:
    ItemWriter(MapText &map, QWidget &window) : map_(map), window_(window), frame_(map_id(window)) {}
    // `view`: the part of the widget that its mothers have room for.
    void write(QWidget &widget, const QRect &view);

  private:
    // Describes the widget if it is of that class, or of one of them.
    template <class Widget>
    bool is_described_as(QWidget &widget) {
        auto *known = qobject_cast<Widget *>(&widget);
        if (known) describe(*known);
        return known != nullptr;
    }
    template <class... Widgets>
    bool is_one_of(QWidget &widget) {
        return (is_described_as<Widgets>(widget) || ...);
    }
    void describe(const QCheckBox &box);
    void describe(const QAbstractButton &button);
    void describe(const QComboBox &choice);
    void describe(const QLineEdit &field);
    void describe(const QSpinBox &number);
    void describe(const NumberSlider &slider);
    void describe(const QLabel &label);
    void describe(const QScrollBar &bar);
    void describe(const QAbstractItemView &list);
    void describe(const QPlainTextEdit &edit);
    void describe(const QMenu &menu) { describe_entries(menu); }
    void describe(const QMenuBar &bar) { describe_entries(bar); }
    void describe(Canvas &canvas);
    template <class Menu>
    void describe_entries(const Menu &menu);
    void describe_row(const QAbstractItemView &list, const QModelIndex &row, const QRect &box);

    bool is_popup() const { return window_.windowType() == Qt::Popup; }
    void item(const char *kind, const QString &label, const QString &value, bool active, const QRect &box) {
        map_.add_line("item", frame_, kind, label, value, active ? "active" : "inactive", box);
    }
    void item(const char *kind, const QString &label, const QString &value, const QWidget &widget) {
        item(kind, label, value, widget.isEnabled(), box_on_screen(widget, widget.rect()));
    }
    void text(const QString &line) { map_.add_line("text", frame_, line); }

    MapText &map_;
    const QWidget &window_;
    const int frame_;
};

// What an item consists of is no item.
void ItemWriter::write(QWidget &widget, const QRect &view) {
    if (!widget.isVisible() || view.isEmpty()) return;
    if (is_one_of<QCheckBox, QAbstractButton, QComboBox, QLineEdit, QSpinBox, NumberSlider, QLabel,
                  QScrollBar, QAbstractItemView, QPlainTextEdit, QMenu, QMenuBar, Canvas>(widget))
        return;
    for (QWidget *part : widget.findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
        if (!part->isWindow()) write(*part, (view & part->geometry()).translated(-part->pos()));
}

// ---------------------------------------------------------------- fields and buttons

// Behind its label a wide one takes no clicks.
void ItemWriter::describe(const QCheckBox &box) {
    QRect place = box.rect();
    place.setWidth(std::min(place.width(), box.sizeHint().width()));
    if (box.isRightToLeft()) place.moveRight(box.rect().right());
    item("checkbox", without_mnemonic(box.text()), box.isChecked() ? "1" : "0", box.isEnabled(),
         box_on_screen(box, place));
}

void ItemWriter::describe(const QAbstractButton &button) {
    if (!button.text().isEmpty()) item("button", without_mnemonic(button.text()), {}, button);
}

void ItemWriter::describe(const QComboBox &choice) {
    item("choice", choice.accessibleName(), choice.currentText(), choice);
}

void ItemWriter::describe(const QLineEdit &field) {
    item("textfield", field.accessibleName(), field.text(), field);
}

void ItemWriter::describe(const QSpinBox &number) {
    item("numeric", number.accessibleName(), number.text(), number);
}

// The field stands at the left of what counts as the slider: its label is not part of it.
void ItemWriter::describe(const NumberSlider &slider) {
    const auto *field = slider.findChild<QSpinBox *>();
    QRect box = slider.rect();
    box.setLeft(slider.field_box().left());
    item("slider", field->accessibleName(), field->text(), slider.isEnabled(), box_on_screen(slider, box));
}

// Labels of fields are told with their fields, and pictures have no text.
void ItemWriter::describe(const QLabel &label) {
    if (label.buddy() || label.text().isEmpty()) return;
    if (window_.objectName() != "notice") return item("message", label.text(), {}, label);
    for (const QString &line : label.text().split('\n')) text(line);
}

void ItemWriter::describe(const QScrollBar &bar) {
    const bool horizontal = bar.orientation() == Qt::Horizontal;
    item("scrollbar", horizontal ? "horizontal" : "vertical", QString::number(bar.value()),
         bar.isEnabled() && bar.maximum() > bar.minimum(), box_on_screen(bar, bar.rect()));
}

// ---------------------------------------------------------------- rows, entries, texts

void ItemWriter::describe(const QAbstractItemView &list) {
    if (!list.model()) return;
    const QModelIndexList selected = list.selectionModel()->selectedIndexes();
    if (!is_popup()) item("list", list.accessibleName(), selected.value(0).data().toString(), list);
    const QRect view = list.viewport()->rect();
    QModelIndex row = list.indexAt(view.topLeft() + QPoint(1, 1));
    for (; row.isValid(); row = row.siblingAtRow(row.row() + 1)) {
        const QRect box = list.visualRect(row);
        if (box.top() > view.bottom()) break;
        if (const QRect shown = box & view; !shown.isEmpty()) describe_row(list, row, shown);
    }
}

// The list that a choice drops down, or that completes a field, is a menu.
void ItemWriter::describe_row(const QAbstractItemView &list, const QModelIndex &row, const QRect &box) {
    const QString label = row.data().toString();
    const QRect place = box_on_screen(*list.viewport(), box);
    if (is_popup()) {
        const auto *choice = qobject_cast<const QComboBox *>(window_.parentWidget());
        const bool checked = choice && choice->currentIndex() == row.row();
        item("menuentry", label, checked ? "checked" : "", row.flags().testFlag(Qt::ItemIsEnabled), place);
    } else {
        const bool selected = list.selectionModel()->isSelected(row);
        map_.add_line("row", frame_, list.accessibleName(), label, selected ? "selected" : "-", place);
    }
}

template <class Menu>
void ItemWriter::describe_entries(const Menu &menu) {
    for (QAction *entry : menu.actions()) {
        if (!entry->isVisible() || entry->isSeparator()) continue;
        const char *value = entry->menu() ? "submenu" : entry->isChecked() ? "checked" : "";
        item("menuentry", without_mnemonic(entry->text().section('\t', 0, 0)), value,
             menu.isEnabled() && entry->isEnabled(), box_on_screen(menu, menu.actionGeometry(entry)));
    }
}

// The lines as they are wrapped; empty ones at the end are left out.
void ItemWriter::describe(const QPlainTextEdit &edit) {
    const QWidget &view = *edit.viewport();
    item("textwindow", {}, {}, edit.isEnabled() && !edit.isReadOnly(), box_on_screen(view, view.rect()));
    int empty = 0;
    QTextCursor at = edit.cursorForPosition({0, 0});
    while (edit.cursorRect(at).top() <= view.rect().bottom()) {
        const QTextBlock block = at.block();
        const QTextLine line = block.layout()->lineForTextPosition(at.positionInBlock());
        if (!line.isValid()) break;
        const QString shown = block.text().mid(line.textStart(), line.textLength());
        if (shown.isEmpty()) {
            ++empty;
        } else {
            for (; empty > 0; --empty) text({});
            text(shown);
        }
        const int next = block.position() + line.textStart() + line.textLength();
        const bool wrapped = line.lineNumber() + 1 < block.layout()->lineCount();
        if (!wrapped && !block.next().isValid()) break;
        at.setPosition(wrapped ? next : block.next().position());
    }
}

// ---------------------------------------------------------------- nodes

void ItemWriter::describe(Canvas &canvas) {
    const QWidget &view = *canvas.viewport();
    item("canvas", {}, {}, canvas.isEnabled(), box_on_screen(view, view.rect()));
    describe(*canvas.horizontalScrollBar());
    describe(*canvas.verticalScrollBar());
    canvas.lay_out_now();
    const TreePicture &picture = canvas.picture();
    const QRectF part(canvas.picture_place({0, 0}), QSizeF(view.size()) / canvas.zoom());
    const auto label = [](const Label *text) { return text ? to_qstring(text->view()) : QString(); };
    picture.for_each_in(part, [&](const PlacedNode &placed) {
        const Node &node = *placed.node;
        const QRect box = canvas.view_box_of(picture.category_box(&node)) & view.rect();
        if (box.isEmpty()) return;
        map_.add_line("node", frame_, QString::fromStdString(path_of(&node)), label(node.syn()),
                      label(node.sem()), label(node.lex()), node.selected() ? "selected" : "-",
                      box_on_screen(view, box));
    });
}

}  // namespace

void write_window(MapText &map, QWidget &window) {
    const auto *menu = qobject_cast<QMenu *>(&window);
    QWidget *owner = window.parentWidget() ? window.parentWidget()->window() : nullptr;
    map.add_line("frame", map_id(window), owner ? map_id(*owner) : 0,
                 menu ? without_mnemonic(menu->title()) : window.windowTitle(),
                 window.property("footer").toString(), window.property("busy").toBool() ? "busy" : "idle",
                 box_on_screen(window, window.rect()));
    write_items(map, window);
}

void write_items(MapText &map, QWidget &window) {
    ItemWriter(map, window).write(window, window.rect());
}

}  // namespace brindle
