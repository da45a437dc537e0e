// The message box for an edit box whose entry was refused: error icon, OK and Help.
#pragma once

class QString;
class QWidget;

namespace curvemill {

// Shows `text` over `dialog`. Help asks for help about the message: the box, named "error"
// followed by the identifier of `edit`, sends itself a help request, which whoever shows help
// answers (the box belongs to `dialog`, so the request names both).
void showEntryError(QWidget* dialog, const QString& text, const QWidget* edit);

}  // namespace curvemill
