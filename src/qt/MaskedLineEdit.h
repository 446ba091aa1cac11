#pragma once

#include "controls/EntryMask.h"

#include <QLineEdit>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace skyvert {

/// A line edit that asks an `EntryMask` before every change that a person makes: by key, input
/// method, paste, drop or deletion. Undo and redo go through the texts as they were seen.
///
/// A text that assistive technology puts into the field counts as a person's as well. It comes by
/// `QLineEdit::setText`, so code must use the `setText` of this class.
///
/// Qt's own input mask and validators are no help here: an empty field under such a mask is not
/// empty, and a validator that completes a text wipes the undo history.
///
/// What code assigns with `setText` passes unchanged, whether it fits the mask or not, and so does
/// the text that stands while the mask is set.
class MaskedLineEdit : public QLineEdit {
    Q_OBJECT

public:
    /// Turns characters from outside into those of the program; UTF-8 on both sides.
    using Fold = std::function<std::string(std::string_view)>;

    /// Told of a text, already folded, before it is pasted. Returned: whether that took it.
    using PasteHandler = std::function<bool(std::string_view)>;

    /// Rewrites a folded text that does not fit; nothing if that can't be done.
    using Fit = std::function<std::optional<std::string>(std::string_view)>;

    explicit MaskedLineEdit(QWidget* parent = nullptr);

    /// Whatever is typed or pasted goes through `fold` first. An empty function folds nothing.
    void setFold(Fold fold) { fold_ = std::move(fold); }

    void setPasteHandler(PasteHandler handler) { pasteHandler_ = std::move(handler); }

    /// Where a pasted text replaces all digits and doesn't fit the mask, `fit` is asked for one
    /// that does.
    void setFit(Fit fit) { fit_ = std::move(fit); }

    void setEntryMask(EntryMask mask) { mask_ = std::move(mask); }

    /// Assigns a text by code. Raises no `edited`.
    void setText(const QString& text);

    // These hide operations that QLineEdit's context menu calls by name.
    Q_SLOT void cut();
    Q_SLOT void paste();

signals:
    /// A person has changed the text, never code. A receiver may call `setText` at once.
    void edited(const QString& text);

    /// A text that was to be pasted does not fit.
    void refused();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// The selection stays while a menu of the menu bar is used, for the menu is to act on it.
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    bool editedBy(const QKeyEvent& event);
    bool erasedBy(const QKeyEvent& event);
    void eraseSelection();
    std::string folded(const QString& text) const;
    std::optional<EntryText> entryWith(std::string_view typed) const;
    std::optional<EntryText> pastedEntry(const std::string& pasted) const;
    bool runsOn(const EntryText& entry, std::string_view pasted) const;
    bool replacesAllDigits() const;
    void type(const QString& typed);
    void pasteText(const QString& pasted);
    void tell();
    void takeForeignText();
    std::size_t characterAt(int position) const;
    int selectionFirst() const;
    int selectionLast() const;
    void become(const EntryText& entry);
    void replaceDifference(const QString& wanted);

    EntryMask mask_;
    Fold fold_;
    PasteHandler pasteHandler_;
    Fit fit_;
    QString known_;           ///< the text that was assigned or told last
    bool isBecoming_ = false; ///< `become` is at work, which raises `edited` itself at its end
};

} // namespace skyvert
