#include "windows/ui_map_items.hpp"

#include <algorithm>

#include "drawing/text.hpp"
#include "model/path.hpp"
#include "windows/canvas.hpp"
#include "windows/number_slider.hpp"

namespace brindle {

MapText &MapText::start(const char *kind) {
    text_ += QLatin1String(kind);
    return *this;
}

MapText &MapText::field(QString text) {
    text_ += '\t' + text.replace('\n', QLatin1String("\\n")).replace('\t', QLatin1String("\\t"));
    return *this;
}

void MapText::end(const QRect &box) {
    text_ +=
        QStringLiteral("\t%1\t%2\t%3\t%4\n").arg(box.x()).arg(box.y()).arg(box.width()).arg(box.height());
}

int map_id(QWidget &window) {
    static constexpr const char *property = "ui_map_id";
    static int last = 0;
    if (!window.property(property).isValid()) window.setProperty(property, ++last);
    return window.property(property).toInt();
}

// Screens lie where the server says; what is on them is scaled.
QRect box_on_screen(const QWidget &widget, const QRect &part) {
    const QPointF origin = widget.screen()->geometry().topLeft();
    const double ratio = widget.devicePixelRatio();
    const QPointF corner = widget.mapToGlobal(QPointF(part.topLeft())) - origin;
    return {(origin + corner * ratio).toPoint(), (QSizeF(part.size()) * ratio).toSize()};
}

QString without_mnemonic(const QString &label) {
    QString shown;
    for (qsizetype n = 0; n < label.size(); ++n) {
        if (label[n] == '&' && n + 1 < label.size()) ++n;
        shown += label[n];
    }
    return shown;
}

namespace {

// Walks the widgets of one window.
class ItemWriter {
  public:
    ItemWriter(MapText &map, QWidget &window) : map_(map), window_(window), frame_(map_id(window)) {}
    // `view`: the part of the widget that its mothers have room for.
    void write(QWidget &widget, const QRect &view);

  private:
    bool write_field(QWidget &widget);
    bool write_view(QWidget &widget);
    void start(const char *kind, const QString &label, const QString &value, bool active);
    void item(const QWidget &widget, const char *kind, const QString &label, const QString &value = {}) {
        start(kind, label, value, widget.isEnabled());
        map_.end(box_on_screen(widget, widget.rect()));
    }
    void write_check_box(const QCheckBox &box);
    void write_slider(const NumberSlider &slider);
    void write_message(const QLabel &label);
    void write_bar(const QScrollBar &bar);
    void write_list(const QAbstractItemView &list);
    void write_row(const QAbstractItemView &list, const QModelIndex &row, const QRect &box);
    void write_entries(const QWidget &menu, const QAction &entry, const QRect &box);
    void write_canvas(Canvas &canvas);
    template <class Edit>
    void write_text(const Edit &edit);
    void text(const QString &line) { map_.start("text").field(frame_).field(line).end(); }

    MapText &map_;
    const QWidget &window_;
    const int frame_;
};

void ItemWriter::start(const char *kind, const QString &label, const QString &value, bool active) {
    map_.start("item").field(frame_).field(kind).field(label).field(value);
    map_.field(active ? "active" : "inactive");
}

// Behind its label a wide one takes no clicks.
void ItemWriter::write_check_box(const QCheckBox &box) {
    start("checkbox", without_mnemonic(box.text()), box.isChecked() ? "1" : "0", box.isEnabled());
    QRect place = box.rect();
    place.setWidth(std::min(place.width(), box.sizeHint().width()));
    if (box.isRightToLeft()) place.moveRight(box.rect().right());
    map_.end(box_on_screen(box, place));
}

// The field stands at the left of what counts as the slider: its label is not part of it.
void ItemWriter::write_slider(const NumberSlider &slider) {
    const auto *field = slider.findChild<QSpinBox *>();
    start("slider", slider.label(), field->text(), slider.isEnabled());
    QRect box = slider.rect();
    box.setLeft(slider.field_box().left());
    map_.end(box_on_screen(slider, box));
}

// Labels of fields are told with their fields, and pictures have no text.
void ItemWriter::write_message(const QLabel &label) {
    if (label.buddy() || label.text().isEmpty()) return;
    if (window_.objectName() != "notice") return item(label, "message", label.text());
    for (const QString &line : label.text().split('\n')) text(line);
}

void ItemWriter::write_bar(const QScrollBar &bar) {
    const bool horizontal = bar.orientation() == Qt::Horizontal;
    start("scrollbar", horizontal ? "horizontal" : "vertical", QString::number(bar.value()),
          bar.isEnabled() && bar.maximum() > bar.minimum());
    map_.end(box_on_screen(bar, bar.rect()));
}

// The list that a choice drops down, or that completes a field, is a menu.
void ItemWriter::write_row(const QAbstractItemView &list, const QModelIndex &row, const QRect &box) {
    const QString label = row.data().toString();
    if (window_.windowType() == Qt::Popup) {
        const auto *choice = qobject_cast<const QComboBox *>(window_.parentWidget());
        const bool checked = choice && choice->currentIndex() == row.row();
        start("menuentry", label, checked ? "checked" : "", row.flags().testFlag(Qt::ItemIsEnabled));
    } else {
        const bool selected = list.selectionModel()->isSelected(row);
        map_.start("row").field(frame_).field(list.accessibleName()).field(label);
        map_.field(selected ? "selected" : "-");
    }
    map_.end(box_on_screen(*list.viewport(), box));
}

void ItemWriter::write_list(const QAbstractItemView &list) {
    if (!list.model()) return;
    if (window_.windowType() != Qt::Popup) {
        const QModelIndexList selected = list.selectionModel()->selectedIndexes();
        item(list, "list", list.accessibleName(),
             selected.isEmpty() ? QString() : selected.front().data().toString());
    }
    const QRect view = list.viewport()->rect();
    QModelIndex row = list.indexAt(view.topLeft() + QPoint(1, 1));
    for (; row.isValid(); row = row.siblingAtRow(row.row() + 1)) {
        const QRect box = list.visualRect(row);
        if (box.top() > view.bottom()) break;
        if (const QRect shown = box & view; !shown.isEmpty()) write_row(list, row, shown);
    }
}

void ItemWriter::write_entries(const QWidget &menu, const QAction &entry, const QRect &box) {
    if (!entry.isVisible() || entry.isSeparator()) return;
    const char *value = entry.menu() ? "submenu" : entry.isChecked() ? "checked" : "";
    const QString label = without_mnemonic(entry.text().section('\t', 0, 0));
    start("menuentry", label, value, menu.isEnabled() && entry.isEnabled());
    map_.end(box_on_screen(menu, box));
}

// The lines as they are wrapped; empty ones at the end are left out.
template <class Edit>
void ItemWriter::write_text(const Edit &edit) {
    start("textwindow", {}, {}, edit.isEnabled() && !edit.isReadOnly());
    const QWidget &view = *edit.viewport();
    map_.end(box_on_screen(view, view.rect()));
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

void ItemWriter::write_canvas(Canvas &canvas) {
    const QWidget &view = *canvas.viewport();
    start("canvas", {}, {}, canvas.isEnabled());
    map_.end(box_on_screen(view, view.rect()));
    write_bar(*canvas.horizontalScrollBar());
    write_bar(*canvas.verticalScrollBar());
    canvas.lay_out_now();
    const TreePicture &picture = canvas.picture();
    const QPointF start = canvas.view_box_of({0, 0, 0, 0}).topLeft();
    const QRectF part(-start / canvas.zoom(), QSizeF(view.size()) / canvas.zoom());
    const auto label = [](const Label *text) { return text ? to_qstring(text->view()) : QString(); };
    picture.for_each_in(part, [&](const PlacedNode &placed) {
        const Node &node = *placed.node;
        const QRect box = canvas.view_box_of(picture.category_box(&node)) & view.rect();
        if (box.isEmpty()) return;
        map_.start("node").field(frame_).field(QString::fromStdString(path_of(&node)));
        map_.field(label(node.syn())).field(label(node.sem())).field(label(node.lex()));
        map_.field(node.selected() ? "selected" : "-").end(box_on_screen(view, box));
    });
}

bool ItemWriter::write_field(QWidget &widget) {
    if (const auto *box = qobject_cast<QCheckBox *>(&widget)) {
        write_check_box(*box);
    } else if (const auto *button = qobject_cast<QAbstractButton *>(&widget)) {
        if (!button->text().isEmpty()) item(*button, "button", without_mnemonic(button->text()));
    } else if (const auto *choice = qobject_cast<QComboBox *>(&widget)) {
        item(*choice, "choice", choice->accessibleName(), choice->currentText());
    } else if (const auto *line = qobject_cast<QLineEdit *>(&widget)) {
        item(*line, "textfield", line->accessibleName(), line->text());
    } else if (const auto *number = qobject_cast<QSpinBox *>(&widget)) {
        item(*number, "numeric", number->accessibleName(), number->text());
    } else if (const auto *slider = qobject_cast<NumberSlider *>(&widget)) {
        write_slider(*slider);
    } else {
        return false;
    }
    return true;
}

bool ItemWriter::write_view(QWidget &widget) {
    if (const auto *label = qobject_cast<QLabel *>(&widget)) {
        write_message(*label);
    } else if (auto *canvas = qobject_cast<Canvas *>(&widget)) {
        write_canvas(*canvas);
    } else if (const auto *plain = qobject_cast<QPlainTextEdit *>(&widget)) {
        write_text(*plain);
    } else if (const auto *rich = qobject_cast<QTextEdit *>(&widget)) {
        write_text(*rich);
    } else if (const auto *list = qobject_cast<QAbstractItemView *>(&widget)) {
        write_list(*list);
    } else if (const auto *bar = qobject_cast<QScrollBar *>(&widget)) {
        write_bar(*bar);
    } else {
        return false;
    }
    return true;
}

// What an item consists of is no item.
void ItemWriter::write(QWidget &widget, const QRect &view) {
    if (!widget.isVisible() || view.isEmpty()) return;
    if (write_field(widget) || write_view(widget)) return;
    if (const auto *menu = qobject_cast<QMenu *>(&widget)) {
        for (const QAction *entry : menu->actions())
            write_entries(*menu, *entry, menu->actionGeometry(const_cast<QAction *>(entry)));
    } else if (const auto *bar = qobject_cast<QMenuBar *>(&widget)) {
        for (const QAction *entry : bar->actions())
            write_entries(*bar, *entry, bar->actionGeometry(const_cast<QAction *>(entry)));
    }
    for (QObject *child : widget.children()) {
        auto *part = qobject_cast<QWidget *>(child);
        if (part && !part->isWindow()) write(*part, (view & part->geometry()).translated(-part->pos()));
    }
}

}  // namespace

void write_items(MapText &map, QWidget &window) {
    ItemWriter(map, window).write(window, window.rect());
}

}  // namespace brindle
