// The frame each input window that computes on the worker repeats: named boxes and buttons, the
// progress bar shown only while the window's run goes, the inputs held still meanwhile.
#pragma once

#include <initializer_list>

class QLineEdit;
class QProgressBar;
class QPushButton;
class QString;
class QWidget;

namespace curvemill {

// A box of `window` named by its control identifier.
QLineEdit* makeEntryBox(QWidget* window, int id, const QString& text, int maxLength);
// A button named by its control identifier; Enter presses only the window's default one.
QPushButton* makeWindowButton(QWidget* window, int id, const QString& text);
// "Help": the window asks for its page as F1 does.
QPushButton* makeHelpButton(QWidget* window, int id);
// The progress bar, hidden until a run; `keepRoom` keeps the window one size meanwhile.
QProgressBar* makeRunProgress(QWidget* window, int id, bool keepRoom);
// While the window's run goes, `inputs` are off, Stop is on and takes the focus, and the bar
// shows from 0.
void showRunning(bool running, std::initializer_list<QWidget*> inputs, QPushButton* stop,
                 QProgressBar* progress);

}  // namespace curvemill
