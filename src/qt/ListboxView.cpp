#include "qt/ListboxView.h"

#include "platform/SettingGuard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>
#include <array>

namespace skyvert {

namespace {

/// One cell of the table as a surface.
class CellGraphics final : public Graphics {
public:
    CellGraphics(QPainter& painter, const QRect& cell) : painter_(painter), cell_(cell) {}

    int Width() const override { return cell_.width(); }

    int Height() const override { return cell_.height(); }

    void setForeColor(Color color) override { color_ = QColor::fromRgb(color.value); }

    void FillRect(int x, int y, int width, int height) override {
        painter_.fillRect(cell_.x() + x, cell_.y() + y, width, height, color_);
    }

private:
    QPainter& painter_;
    QRect cell_;
    QColor color_ = Qt::black;
};

/// Lets the list box paint behind the text.
class CellDelegate final : public QStyledItemDelegate {
public:
    CellDelegate(const Listbox& listbox, QObject* parent)
        : QStyledItemDelegate(parent), listbox_(listbox) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem cell(option);
        // Rows are selected, not cells: a frame around one cell would say otherwise.
        cell.state &= ~QStyle::State_HasFocus;
        CellGraphics graphics(*painter, cell.rect);
        if (listbox_.paintCellBackground(graphics, index.row(), index.column()))
            cell.state &= ~QStyle::State_Selected;
        QStyledItemDelegate::paint(painter, cell, index);
    }

private:
    const Listbox& listbox_;
};

void setUpHeaders(QTableView& table) {
    QHeaderView& columns = *table.horizontalHeader();
    columns.setSectionsClickable(false);
    columns.setHighlightSections(false);
    columns.setSectionResizeMode(QHeaderView::Stretch);
    QHeaderView& rows = *table.verticalHeader();
    rows.hide();
    rows.setSectionResizeMode(QHeaderView::Fixed);
}

bool isInput(QEvent::Type type) {
    constexpr std::array kInputs{QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::Wheel,
                                 QEvent::ToolTip, QEvent::ContextMenu};
    return std::find(kInputs.begin(), kInputs.end(), type) != kInputs.end();
}

} // namespace

ListboxView::ListboxView(Listbox& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent), model_(new ListboxModel(control, this)),
      due_(new QTimer(this)) {
    due_->setSingleShot(true);
    connect(due_, &QTimer::timeout, this, [this] { act([this] { flush(); }); });
    setModel(model_);
    setItemDelegate(new CellDelegate(control, this));
    setUpHeaders(*this);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName("Coordinates");
    control.setView(this);
    flush();
}

void ListboxView::refresh() {
    // The model must not show rows that are gone, so a deletion cannot wait.
    if (model_->isOutdated())
        flush();
    else if (!due_->isActive())
        due_->start(0);
}

void ListboxView::flushPending() {
    if (due_->isActive())
        flush();
}

void ListboxView::flush() {
    due_->stop();
    WidgetView::refresh();
}

void ListboxView::mirror() {
    const SettingGuard guard(mirroring_);
    model_->announce();
    mirrorSelection();
}

void ListboxView::mirrorSelection() {
    if (control().selection() == mirrored_)
        return;
    mirrored_ = control().selection();
    QItemSelection selection;
    for (const RowRange& range : mirrored_) {
        selection.select(model_->index(static_cast<int>(range.first), 0),
                         model_->index(static_cast<int>(range.last), model_->columnCount() - 1));
    }
    const QModelIndex first = model_->index(static_cast<int>(control().listIndex()), 0);
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (first.isValid())
        scrollTo(first);
}

void ListboxView::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (!mirroring_)
        takeSelection();
}

/// A table tells assistive technology that the focus is on its current cell, wherever it really is.
void ListboxView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (hasFocus())
        return QTableView::currentChanged(current, previous);
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): all but what the table tells
    QAbstractItemView::currentChanged(current, previous);
}

/// Rows are selected, not cells: Home and End lead to the first and the last row.
QModelIndex ListboxView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action == MoveHome)
        return model_->index(0, 0);
    if (action == MoveEnd)
        return model_->index(model_->rowCount() - 1, 0);
    return QTableView::moveCursor(action, modifiers);
}

/// Hands on what a person has selected. The view shows it already and must not scroll to it.
void ListboxView::takeSelection() {
    act([this] {
        const std::vector<RowRange> shown = shownSelection();
        control().setSelection(shown);
        mirrored_ = control().selection();
    });
}

std::vector<RowRange> ListboxView::shownSelection() const {
    std::vector<RowRange> ranges;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        ranges.push_back({range.top(), range.bottom()});
    return ranges;
}

void ListboxView::setRowHeight(int height) {
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

void ListboxView::copySelection() {
    const std::string text = control().selectedText();
    if (!text.empty())
        QGuiApplication::clipboard()->setText(toQString(text));
}

void ListboxView::selectAll() {
    flushPending();
    QTableView::selectAll();
}

void ListboxView::keyPressEvent(QKeyEvent* event) {
    flushPending();
    if (event->matches(QKeySequence::Copy))
        copySelection();
    else
        QTableView::keyPressEvent(event);
}

bool ListboxView::viewportEvent(QEvent* event) {
    if (isInput(event->type()))
        flushPending();
    return QTableView::viewportEvent(event);
}

} // namespace skyvert
