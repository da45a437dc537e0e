// The message box for an edit box whose entry was refused: error icon, OK and Help.
#pragma once

class QLineEdit;
class QString;
class QWidget;

namespace curvemill {

// Shows `text` over `dialog`. Help asks for help about the message: the box, named "error"
// followed by the identifier of `edit`, sends itself a help request, which whoever shows help
// answers (the box belongs to `dialog`, so the request names both).
void showEntryError(QWidget* dialog, const QString& text, const QWidget* edit);

// A refused entry as every input window tells it: with a Help button explaining the message when
// `explained`, a plain error box otherwise (an order of two boxes has nothing to explain); then
// `box`, when given, takes the focus with its text selected for retyping.
void showRefusal(QWidget* dialog, const QString& text, QLineEdit* box, bool explained);

}  // namespace curvemill
