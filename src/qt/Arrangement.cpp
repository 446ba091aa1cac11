#include "qt/Arrangement.h"

#include "qt/ControlViews.h"
#include "qt/DateControlView.h"
#include "qt/ListboxView.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace skyvert {

namespace {

constexpr int kSideMargin = 5; ///< 8 pixels with the frame of a group box
constexpr int kTopMargin = 4;
constexpr int kColumnGap = 6;
constexpr int kRowGap = 4;
constexpr int kTolerance = 4; ///< offsets that differ by at most this are one row or column
constexpr double kSmallestPointSize = 6.0;
constexpr int kListRowHeight = 20; ///< in points

/// If a point needs at most this many pixels, the font shrinks (by one or two sizes) instead of the
/// window growing.
constexpr double kAlmostOne = 1.125;

template <typename ControlType, typename View>
QWidget* makeView(Control& control, const Desktop& desktop, QWidget* parent) {
    auto* const typed = dynamic_cast<ControlType*>(&control);
    return typed == nullptr ? nullptr : new View(*typed, desktop, parent);
}

constexpr std::array kMakers{
    &makeView<Label, LabelView>,
    &makeView<GroupBox, GroupBoxView>,
    &makeView<PushButton, PushButtonView>,
    &makeView<CheckBox, CheckBoxView>,
    &makeView<TextField, TextFieldView>,
    &makeView<PopupMenu, PopupMenuView>,
    &makeView<DateControl, DateControlView>,
    &makeView<Listbox, ListboxView>,
    &makeView<ContainerControl, ContainerView>,
};

QWidget* makeAnyView(Control& control, const Desktop& desktop, QWidget* parent) {
    for (const auto maker : kMakers) {
        if (QWidget* const widget = maker(control, desktop, parent))
            return widget;
    }
    throw std::logic_error("there is no view for the control " + control.name());
}

/// The offsets at which rows or columns begin, given the offsets of all controls.
std::vector<int> linesOf(std::vector<int> offsets) {
    std::sort(offsets.begin(), offsets.end());
    std::vector<int> lines;
    for (const int offset : offsets) {
        if (lines.empty() || offset - lines.back() > kTolerance)
            lines.push_back(offset);
    }
    return lines;
}

/// The index of the row or column that contains an offset.
int lineAt(const std::vector<int>& lines, int offset) {
    return static_cast<int>(std::upper_bound(lines.begin(), lines.end(), offset) - lines.begin()) -
           1;
}

/// The rows and columns of a group box, derived from the layout of its members.
class GroupGrid {
public:
    explicit GroupGrid(const ShownControl& group) : group_(group) {
        std::vector<int> tops;
        std::vector<int> lefts;
        for (const ShownControl& member : group.members) {
            tops.push_back(member.control->layout().top);
            lefts.push_back(member.control->layout().left);
        }
        rows_ = linesOf(std::move(tops));
        columns_ = linesOf(std::move(lefts));
    }

    int rowOf(const ShownControl& member) const {
        return lineAt(rows_, member.control->layout().top);
    }

    void build() const {
        auto* const grid = new QGridLayout(group_.widget);
        grid->setContentsMargins(kSideMargin, kTopMargin, kSideMargin, kTopMargin);
        grid->setHorizontalSpacing(kColumnGap);
        grid->setVerticalSpacing(0);
        for (const ShownControl& member : group_.members)
            add(*grid, member);
        shareWidth(*grid);
        separateRows(*grid);
    }

private:
    /// A control spans all columns that begin before its right edge. Every second row of the grid
    /// is the gap below a row of controls.
    void add(QGridLayout& grid, const ShownControl& member) const {
        const ControlLayout& layout = member.control->layout();
        const int first = lineAt(columns_, layout.left);
        const int last = lineAt(columns_, layout.left + layout.width - 1);
        grid.addWidget(member.widget, 2 * rowOf(member), first, 1, last - first + 1);
    }

    /// Distributes spare width over the columns in proportion to the layout.
    void shareWidth(QGridLayout& grid) const {
        const ControlLayout& box = group_.control->layout();
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            const int end = column + 1 < columns_.size() ? columns_[column + 1]
                                                         : box.left + box.width - kColumnGap;
            grid.setColumnStretch(static_cast<int>(column), end - columns_[column]);
        }
    }

    /// Distributes spare height over the gaps between rows, except rows that the layout sets
    /// as closely as lines of text.
    void separateRows(QGridLayout& grid) const {
        for (std::size_t row = 0; row + 1 < rows_.size(); ++row) {
            if (rows_[row + 1] - rows_[row] <= kLineOfText)
                continue;
            const int gap = static_cast<int>(2 * row + 1);
            grid.setRowMinimumHeight(gap, kRowGap);
            grid.setRowStretch(gap, 1);
        }
    }

    static constexpr int kLineOfText = 18;

    const ShownControl& group_;
    std::vector<int> rows_;
    std::vector<int> columns_;
};

bool needsName(const Control& control) {
    return dynamic_cast<const TextField*>(&control) != nullptr ||
           dynamic_cast<const PopupMenu*>(&control) != nullptr ||
           dynamic_cast<const DateControl*>(&control) != nullptr;
}

/// The control to the right of a label in the same row; null if there is none.
const ShownControl* nextInRow(const ShownControl& group, const GroupGrid& grid,
                              const ShownControl& label) {
    const ShownControl* next = nullptr;
    for (const ShownControl& member : group.members) {
        const int left = member.control->layout().left;
        if (grid.rowOf(member) == grid.rowOf(label) && left > label.control->layout().left &&
            (next == nullptr || left < next->control->layout().left))
            next = &member;
    }
    return next;
}

/// Gives each control an accessible name from its group and label: the window has several controls
/// labelled "RA:".
void nameMembers(const ShownControl& group, const GroupGrid& grid) {
    for (const ShownControl& member : group.members) {
        auto* const label = qobject_cast<QLabel*>(member.widget);
        const ShownControl* const captioned = label ? nextInRow(group, grid, member) : nullptr;
        if (captioned == nullptr || !needsName(*captioned->control))
            continue;
        label->setBuddy(captioned->widget);
        const std::string& title = dynamic_cast<const GroupBox&>(*group.control).caption();
        captioned->widget->setAccessibleName(toQString(title) + ": " + label->text().remove(':'));
    }
}

void arrangeGroup(const ShownControl& group) {
    const GroupGrid grid(group);
    grid.build();
    nameMembers(group, grid);
}

/// Lets the member of a composite, its frame, fill the composite.
void fill(const ShownControl& composite) {
    auto* const layout = new QVBoxLayout(composite.widget);
    layout->setContentsMargins({});
    for (const ShownControl& member : composite.members)
        layout->addWidget(member.widget);
}

ShownControl* find(std::vector<ShownControl>& shown, const Control* control) {
    const auto found =
        std::find_if(shown.begin(), shown.end(),
                     [control](const ShownControl& entry) { return entry.control == control; });
    return found == shown.end() ? nullptr : &*found;
}

void collectTabStops(const std::vector<ShownControl>& controls, std::vector<QWidget*>& stops) {
    for (const ShownControl& shown : controls) {
        if ((shown.widget->focusPolicy() & Qt::TabFocus) != 0)
            stops.push_back(shown.widget);
        collectTabStops(shown.members, stops);
    }
}

/// The geometry of a control after the window has grown by `growth`.
QRect lockedGeometry(QRect place, unsigned locks, QSize growth) {
    const auto follows = [locks](Lock side) { return (locks & side) != 0; };
    if (follows(kLockRight))
        place.setRight(place.right() + growth.width());
    if (!follows(kLockLeft))
        place.setLeft(place.left() + growth.width());
    if (follows(kLockBottom))
        place.setBottom(place.bottom() + growth.height());
    if (!follows(kLockTop))
        place.setTop(place.top() + growth.height());
    return place;
}

/// Enlarges a geometry that is too small for its widget around its centre. No other widget is near
/// enough to overlap.
QRect grownTo(const QWidget& widget, const QRect& place) {
    QRect grown({}, place.size().expandedTo(widget.minimumSizeHint()));
    grown.moveCenter(place.center());
    return grown;
}

} // namespace

std::vector<ShownControl> showControls(const std::vector<Control*>& controls,
                                       const Desktop& desktop, QWidget* parent) {
    std::vector<ShownControl> shown;
    for (Control* const control : controls) {
        ShownControl* const group = find(shown, control->group());
        QWidget* const around = group == nullptr ? parent : group->widget;
        ShownControl entry{control, makeAnyView(*control, desktop, around), {}};
        if (const auto* const composite = dynamic_cast<ContainerControl*>(control)) {
            entry.members = showControls(composite->children(), desktop, entry.widget);
            fill(entry);
        }
        (group == nullptr ? shown : group->members).push_back(std::move(entry));
    }
    for (const ShownControl& entry : shown) {
        if (dynamic_cast<const GroupBox*>(entry.control) != nullptr)
            arrangeGroup(entry);
    }
    return shown;
}

void orderTabStops(const std::vector<ShownControl>& controls) {
    std::vector<QWidget*> stops;
    collectTabStops(controls, stops);
    for (std::size_t stop = 1; stop < stops.size(); ++stop)
        QWidget::setTabOrder(stops[stop - 1], stops[stop]);
}

LockedPane::LockedPane(QSize designSize, QWidget* parent)
    : QWidget(parent), designSize_(designSize) {}

void LockedPane::place(std::vector<ShownControl> controls) {
    controls_ = std::move(controls);
}

void LockedPane::settlePoint(double largest) {
    const double needed = neededPixels();
    pixelsPerPoint_ = std::min(needed <= kAlmostOne ? 1.0 : needed, largest);
}

void LockedPane::fit(double largest) {
    settlePoint(largest);
    QFont smaller = font();
    while (neededPixels() > pixelsPerPoint_ && smaller.pointSizeF() > kSmallestPointSize) {
        smaller.setPointSizeF(smaller.pointSizeF() - 0.5);
        setFont(smaller);
    }
    pixelsPerPoint_ = std::max(pixelsPerPoint_, neededPixels());
    for (const ShownControl& shown : controls_) {
        if (auto* const list = dynamic_cast<ListboxView*>(shown.widget))
            list->setRowHeight(toPixels(kListRowHeight));
    }
}

/// The pixels per point that every group needs to hold its members.
double LockedPane::neededPixels() const {
    double pixels = 0;
    for (const ShownControl& shown : controls_) {
        const QSizeF size = shown.widget->minimumSizeHint();
        const ControlLayout& layout = shown.control->layout();
        if (!shown.members.empty())
            pixels = std::max({pixels, size.width() / layout.width, size.height() / layout.height});
    }
    return pixels;
}

int LockedPane::toPixels(int points) const {
    return qRound(points * pixelsPerPoint_);
}

int LockedPane::toPoints(int pixels) const {
    return qRound(pixels / pixelsPerPoint_);
}

/// Rounds edges instead of lengths, so that gaps stay even.
QRect LockedPane::toPixels(const ControlLayout& layout) const {
    return {
        QPoint(toPixels(layout.left), toPixels(layout.top)),
        QPoint(toPixels(layout.left + layout.width) - 1, toPixels(layout.top + layout.height) - 1)};
}

void LockedPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const QSize growth =
        size() - QSize(toPixels(designSize_.width()), toPixels(designSize_.height()));
    for (const ShownControl& shown : controls_) {
        const ControlLayout& layout = shown.control->layout();
        const QRect locked = lockedGeometry(toPixels(layout), layout.locks, growth);
        shown.widget->setGeometry(grownTo(*shown.widget, locked));
    }
}

} // namespace skyvert
