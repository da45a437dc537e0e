// Test helper: answers the next modal message box as a user would, keeping what it said.
#pragma once

#include <functional>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace curvemill::testing {

// Polls for a modal message box and presses `button` on it; keeps its text, caption and icon.
// One answer per instance; a test that expects no box checks that `seen` stays false.
class ModalAnswer {
  public:
    explicit ModalAnswer(QMessageBox::StandardButton button = QMessageBox::Ok) : button_(button) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { poll(); });
        timer_.start(5);
    }

    bool seen = false;
    QString text;
    QString caption;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    // The box had no owner window.
    bool ownerless = false;
    // Called with the box read, just before the button is pressed.
    std::function<void()> answered;

  private:
    void poll() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            return;
        }
        timer_.stop();
        seen = true;
        text = box->text();
        caption = box->windowTitle();
        icon = box->icon();
        ownerless = box->parentWidget() == nullptr;
        if (answered) {
            answered();
        }
        QAbstractButton* pressed = box->button(button_);
        if (pressed == nullptr) {
            pressed = box->buttons().value(0);
        }
        pressed->click();
    }

    QMessageBox::StandardButton button_;
    QTimer timer_;
};

// Polls for a modal widget of type T other than `except` and hands it to `act`, once; for the
// dialogs that are not message boxes.
template <class T>
class ModalAction {
  public:
    explicit ModalAction(std::function<void(T*)> act, const QWidget* except = nullptr) {
        QObject::connect(&timer_, &QTimer::timeout, [this, act = std::move(act), except] {
            auto* modal = qobject_cast<T*>(QApplication::activeModalWidget());
            if (modal != nullptr && modal != except) {
                timer_.stop();
                seen = true;
                act(modal);
            }
        });
        timer_.start(5);
    }

    bool seen = false;

  private:
    QTimer timer_;
};

}  // namespace curvemill::testing
