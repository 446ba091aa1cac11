#pragma once

#include "platform/EntryMask.h"

#include <QLineEdit>

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace skyvert {

/// A line edit that asks an `EntryMask` before every change that a person makes: by key, input
/// method, paste, drop or deletion. Undo and redo go through the texts as they were seen.
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

    explicit MaskedLineEdit(QWidget* parent = nullptr);

    /// Whatever is typed or pasted goes through `fold` first. An empty function folds nothing.
    void setFold(Fold fold) { fold_ = std::move(fold); }

    void setEntryMask(EntryMask mask) { mask_ = std::move(mask); }

    // These hide operations that QLineEdit's context menu calls by name.
    Q_SLOT void cut();
    Q_SLOT void paste();

signals:
    /// A person has changed the text, never code. A receiver may call `setText` at once.
    void edited(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    bool editedBy(const QKeyEvent& event);
    bool erasedBy(const QKeyEvent& event);
    void eraseSelection();
    void type(const QString& typed);
    void pasteText(const QString& pasted);
    std::size_t characterAt(int position) const;
    int selectionFirst() const;
    int selectionLast() const;
    void become(const EntryText& entry);
    void replaceDifference(const QString& wanted);

    EntryMask mask_;
    Fold fold_;
    bool isBecoming_ = false; ///< `become` is at work, which raises `edited` itself at its end
};

} // namespace skyvert
