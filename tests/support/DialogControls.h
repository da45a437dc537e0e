// Test helpers: find a dialog's control by its identifier and type into it as a user would.
#pragma once

#include <QLineEdit>
#include <QTest>
#include <QWidget>

namespace curvemill::testing {

// The child whose objectName is `id`; a missing control ends the test program at once.
template <class T = QWidget>
T* control(const QWidget& parent, int id) {
    T* found = parent.findChild<T*>(QString::number(id));
    if (found == nullptr) {
        qFatal("control %d missing", id);
    }
    return found;
}

// Selects what the box holds, deletes it and types `text` key by key.
inline void retype(const QWidget& parent, int id, const QString& text) {
    auto* edit = control<QLineEdit>(parent, id);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

}  // namespace curvemill::testing
