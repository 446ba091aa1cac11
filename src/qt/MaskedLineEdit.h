#pragma once

#include "controls/EntryMask.h"

#include <QLineEdit>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace skyvert {

/// A line edit that applies an `EntryMask` to every change by the user: by key, input method,
/// paste, drop or deletion. Undo and redo step through the texts that were shown.
///
/// A text set by assistive technology counts as a change by the user. It arrives through
/// `QLineEdit::setText`, so code must call the `setText` of this class.
///
/// Qt's own input masks and validators are not suitable: under an input mask an empty field is not
/// empty, and a validator that completes a text clears the undo history.
///
/// `setText` assigns a text unchanged, whether it fits the mask or not, and `setEntryMask` keeps
/// the present text.
class MaskedLineEdit : public QLineEdit {
    Q_OBJECT

public:
    /// Replaces look-alike characters in a text. Both texts are UTF-8.
    using Fold = std::function<std::string(std::string_view)>;

    /// Receives a folded text before it is pasted. Returns whether it has handled the paste.
    using PasteHandler = std::function<bool(std::string_view)>;

    /// Rewrites a folded text that does not fit; returns nothing if it cannot.
    using Fit = std::function<std::optional<std::string>(std::string_view)>;

    explicit MaskedLineEdit(QWidget* parent = nullptr);

    /// Typed and pasted texts pass through `fold` first. An empty function changes nothing.
    void setFold(Fold fold) { fold_ = std::move(fold); }

    void setPasteHandler(PasteHandler handler) { pasteHandler_ = std::move(handler); }

    /// If a pasted text replaces all digits and does not fit the mask, `fit` may rewrite it.
    void setFit(Fit fit) { fit_ = std::move(fit); }

    void setEntryMask(EntryMask mask) { mask_ = std::move(mask); }

    /// Assigns a text from code. Does not emit `edited`.
    void setText(const QString& text);

    // These hide slots that the context menu of `QLineEdit` calls by name.
    Q_SLOT void cut();
    Q_SLOT void paste();

signals:
    /// The user, not code, has changed the text. A receiver may call `setText`.
    void edited(const QString& text);

    /// A pasted text does not fit.
    void refused();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// Keeps the selection while a menu of the menu bar is open, since its items act on it.
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
    void reportText();
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
    QString known_;           ///< the text that was last assigned or reported
    bool isBecoming_ = false; ///< `become` is running; it emits `edited` itself
};

} // namespace skyvert
