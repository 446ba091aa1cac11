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

/// The surface of one cell.
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

/// Lets the list box paint the background of a cell, and Qt its text.
class CellDelegate final : public QStyledItemDelegate {
public:
    CellDelegate(const Listbox& listbox, QObject* parent)
        : QStyledItemDelegate(parent), listbox_(listbox) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem cell(option);
        // No frame around a single cell, since rows are selected and not cells.
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
    // The model must not show deleted rows, so a deletion cannot wait.
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

/// `QTableView` would tell assistive technology that its current cell has the focus, even if
/// another widget has it.
void ListboxView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (hasFocus())
        return QTableView::currentChanged(current, previous);
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): skips only `QTableView`
    QAbstractItemView::currentChanged(current, previous);
}

/// Home and End go to the first and the last row, since rows are selected and not cells.
QModelIndex ListboxView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action == MoveHome)
        return model_->index(0, 0);
    if (action == MoveEnd)
        return model_->index(model_->rowCount() - 1, 0);
    return QTableView::moveCursor(action, modifiers);
}

/// Passes the user's selection to the control. The view shows it already and must not scroll to it.
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
