#include "qt/MaskedLineEdit.h"

#include "platform/SettingGuard.h"
#include "qt/QtText.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>

#include <algorithm>
#include <limits>
#include <utility>

namespace skyvert {

namespace {

/// Whether a key enters a character, by the same rules as `QLineEdit`.
bool isTyping(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (event.text().isEmpty() || modifiers == Qt::ControlModifier ||
        modifiers == (Qt::ControlModifier | Qt::ShiftModifier))
        return false;
    const QChar first = event.text().front();
    return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_Format;
}

/// The keys that delete a word, and the operation that selects it.
constexpr std::pair<QKeySequence::StandardKey, void (QLineEdit::*)(bool)> kWordDeletions[] = {
    {QKeySequence::DeleteStartOfWord, &QLineEdit::cursorWordBackward},
    {QKeySequence::DeleteEndOfWord, &QLineEdit::cursorWordForward}};

bool isLineEnd(QChar character) {
    return character == u'\n' || character == u'\r' || character == u'\v' || character == u'\f' ||
           character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

/// The first line that is not blank, with tabs replaced by blanks. A single line without tabs stays
/// unchanged, including blanks at its ends.
QString oneLine(QString text) {
    const auto isBreak = [](QChar character) { return isLineEnd(character) || character == u'\t'; };
    if (std::none_of(text.cbegin(), text.cend(), isBreak))
        return text;
    text = text.trimmed();
    text.truncate(std::find_if(text.cbegin(), text.cend(), isLineEnd) - text.cbegin());
    return text.replace(u'\t', u' ').trimmed();
}

/// The number of points and commas in a text.
std::ptrdiff_t countPoints(std::string_view text) {
    return std::count(text.begin(), text.end(), '.') + std::count(text.begin(), text.end(), ',');
}

/// The position, in UTF-16 units as Qt counts, after a number of characters.
int positionOf(const QString& text, std::size_t characters) {
    qsizetype position = 0;
    for (; characters > 0 && position < text.size(); --characters)
        position += text.at(position).isHighSurrogate() ? 2 : 1;
    return static_cast<int>(std::min(position, text.size()));
}

} // namespace

MaskedLineEdit::MaskedLineEdit(QWidget* parent) : QLineEdit(parent) {
    connect(this, &QLineEdit::textEdited, this, [this] {
        if (!isBecoming_)
            reportText();
    });
    // This signal comes last, for every change. Its argument may be outdated.
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!isBecoming_ && text() != known_)
            takeForeignText();
    });
    setMaxLength(std::numeric_limits<int>::max());
}

void MaskedLineEdit::setText(const QString& text) {
    known_ = text;
    QLineEdit::setText(text);
}

void MaskedLineEdit::reportText() {
    known_ = text();
    emit edited(known_);
}

/// Treats a text assigned from outside as pasted over the whole text, but never refuses it: the
/// text that is shown is also the one that is reported.
void MaskedLineEdit::takeForeignText() {
    const std::string foreign = folded(text());
    selectAll();
    const auto entry = pastedEntry(foreign);
    setText(toQString(entry ? entry->text : foreign));
    reportText();
}

void MaskedLineEdit::focusOutEvent(QFocusEvent* event) {
    const bool isToMenu = event->reason() == Qt::MenuBarFocusReason;
    QFocusEvent leaving(QEvent::FocusOut, isToMenu ? Qt::PopupFocusReason : event->reason());
    QLineEdit::focusOutEvent(&leaving);
}

void MaskedLineEdit::cut() {
    copy();
    eraseSelection();
}

void MaskedLineEdit::paste() {
    pasteText(QGuiApplication::clipboard()->text());
}

void MaskedLineEdit::keyPressEvent(QKeyEvent* event) {
    if (isReadOnly() || !editedBy(*event))
        QLineEdit::keyPressEvent(event);
}

/// Handles a key whose change must fit the mask. Returns false for any other key.
bool MaskedLineEdit::editedBy(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Paste))
        paste();
    else if (event.matches(QKeySequence::Cut))
        cut();
    else if (isTyping(event))
        type(event.text());
    else
        return erasedBy(event);
    return true;
}

/// Handles Backspace, Delete and the keys that delete a word. Returns false for any other key; one
/// that deletes to the end of the text needs no handling, since the rest fits any mask.
bool MaskedLineEdit::erasedBy(const QKeyEvent& event) {
    for (const auto& [key, select] : kWordDeletions) {
        if (event.matches(key)) {
            (this->*select)(true);
            eraseSelection();
            return true;
        }
    }
    const bool isBackward =
        event.key() == Qt::Key_Backspace && (event.modifiers() & ~Qt::ShiftModifier) == 0;
    if (!isBackward && !event.matches(QKeySequence::Delete))
        return false;
    const std::size_t caret = characterAt(cursorPosition());
    if (hasSelectedText())
        eraseSelection();
    else
        become(isBackward ? mask_.eraseBefore(toUtf8(text()), caret)
                          : mask_.eraseAfter(toUtf8(text()), caret));
    return true;
}

/// Shows Qt's menu with another action for "Delete", since Qt's would bypass the mask.
void MaskedLineEdit::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* const menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* const action : menu->actions()) {
        if (action->text() != QLineEdit::tr("Delete"))
            continue;
        action->disconnect();
        connect(action, &QAction::triggered, this, &MaskedLineEdit::eraseSelection);
    }
    menu->popup(event->globalPos());
}

void MaskedLineEdit::inputMethodEvent(QInputMethodEvent* event) {
    const bool isChange = !event->commitString().isEmpty() || event->replacementLength() > 0;
    if (isReadOnly() || !isChange) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    // The composition ends before the text is changed and continues after the change.
    QInputMethodEvent noComposition;
    QLineEdit::inputMethodEvent(&noComposition);
    if (event->replacementLength() > 0)
        setSelection(cursorPosition() + event->replacementStart(), event->replacementLength());
    type(event->commitString());
    QInputMethodEvent composition(event->preeditString(), event->attributes());
    QLineEdit::inputMethodEvent(&composition);
}

/// The middle button pastes the system's selection, if it has one.
void MaskedLineEdit::mouseReleaseEvent(QMouseEvent* event) {
    const QClipboard& clipboard = *QGuiApplication::clipboard();
    if (event->button() != Qt::MiddleButton || !clipboard.supportsSelection() || isReadOnly()) {
        QLineEdit::mouseReleaseEvent(event);
        return;
    }
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    pasteText(clipboard.text(QClipboard::Selection));
}

void MaskedLineEdit::dragEnterEvent(QDragEnterEvent* event) {
    dragMoveEvent(event);
}

/// Files are left to the window. Text is copied, never moved, so that refused text is not lost.
void MaskedLineEdit::dragMoveEvent(QDragMoveEvent* event) {
    event->ignore();
    if (event->mimeData()->hasUrls())
        return;
    QLineEdit::dragMoveEvent(event);
    event->setDropAction(Qt::CopyAction);
}

void MaskedLineEdit::dropEvent(QDropEvent* event) {
    if (isReadOnly())
        return;
    QDragLeaveEvent leave;
    dragLeaveEvent(&leave);
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    const QString before = text();
    pasteText(event->mimeData()->text());
    event->setDropAction(text() == before ? Qt::IgnoreAction : Qt::CopyAction);
    event->setAccepted(text() != before);
}

void MaskedLineEdit::eraseSelection() {
    if (hasSelectedText() && !isReadOnly())
        become(mask_.erase(toUtf8(text()), characterAt(selectionFirst()),
                           characterAt(selectionLast())));
}

std::string MaskedLineEdit::folded(const QString& text) const {
    return fold_ ? fold_(toUtf8(text)) : toUtf8(text);
}

std::optional<EntryText> MaskedLineEdit::entryWith(std::string_view typed) const {
    return mask_.replace(toUtf8(text()), characterAt(selectionFirst()),
                         characterAt(selectionLast()), typed);
}

void MaskedLineEdit::type(const QString& typed) {
    if (const auto entry = entryWith(folded(typed)))
        become(*entry);
}

void MaskedLineEdit::pasteText(const QString& pasted) {
    const QString line = oneLine(pasted);
    if (line.isEmpty() || isReadOnly())
        return;
    const std::string characters = folded(line);
    if (pasteHandler_ && pasteHandler_(characters))
        return;
    if (const auto entry = pastedEntry(characters))
        become(*entry);
    else
        emit refused();
}

/// Whether pasted digits would continue after the decimal separator, as typed digits do. They must
/// not: 053431 pasted into a field for hours and minutes does not mean 34.31 minutes.
bool MaskedLineEdit::runsOn(const EntryText& entry, std::string_view pasted) const {
    const std::string kept =
        toUtf8(text().left(selectionFirst())) + toUtf8(text().mid(selectionLast()));
    return countPoints(entry.text) > countPoints(kept) + countPoints(pasted);
}

std::optional<EntryText> MaskedLineEdit::pastedEntry(const std::string& pasted) const {
    auto entry = entryWith(pasted);
    if (entry && !runsOn(*entry, pasted))
        return entry;
    if (!fit_ || !replacesAllDigits())
        return std::nullopt;
    const auto fitted = fit_(pasted);
    return fitted ? entryWith(*fitted) : std::nullopt;
}

bool MaskedLineEdit::replacesAllDigits() const {
    const auto isDigit = [](QChar character) { return character.isDigit(); };
    const QString present = text();
    return std::none_of(present.cbegin(), present.cbegin() + selectionFirst(), isDigit) &&
           std::none_of(present.cbegin() + selectionLast(), present.cend(), isDigit);
}

/// Converts a position from Qt's UTF-16 units to characters.
std::size_t MaskedLineEdit::characterAt(int position) const {
    return static_cast<std::size_t>(text().left(position).toUcs4().size());
}

int MaskedLineEdit::selectionFirst() const {
    return hasSelectedText() ? selectionStart() : cursorPosition();
}

int MaskedLineEdit::selectionLast() const {
    return hasSelectedText() ? selectionEnd() : cursorPosition();
}

void MaskedLineEdit::become(const EntryText& entry) {
    const QString before = text();
    const QString wanted = toQString(entry.text);
    {
        const SettingGuard guard(isBecoming_);
        replaceDifference(wanted);
        setCursorPosition(positionOf(wanted, entry.caret));
    }
    if (before != wanted)
        reportText();
}

/// Changes only the part that differs, so that each change is one step of the undo history and
/// consecutive typing is merged as usual.
void MaskedLineEdit::replaceDifference(const QString& wanted) {
    const QString present = text();
    if (present == wanted)
        return;
    const auto common = [](auto a, auto aEnd, auto b, auto bEnd) {
        return std::distance(a, std::mismatch(a, aEnd, b, bEnd).first);
    };
    const qsizetype prefix =
        common(present.cbegin(), present.cend(), wanted.cbegin(), wanted.cend());
    const qsizetype suffix = common(present.crbegin(), present.crend() - prefix, wanted.crbegin(),
                                    wanted.crend() - prefix);
    const qsizetype replaced = present.size() - prefix - suffix;
    const QString put = wanted.mid(prefix, wanted.size() - prefix - suffix);
    // Undo merges a deleted selection with the typing after it, but not a single deleted character.
    const bool isOneDeletion = replaced == 1 && put.isEmpty();
    if (replaced > 0 && !isOneDeletion)
        setSelection(static_cast<int>(prefix), static_cast<int>(replaced));
    else
        setCursorPosition(static_cast<int>(prefix + replaced));
    if (isOneDeletion)
        backspace();
    else
        insert(put);
}

} // namespace skyvert
