// Test helper: every control a user reaches from the keyboard has an access key of its own.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStringList>
#include <QToolButton>
#include <QWidget>

namespace curvemill::testing {

// The problems with the access keys of `texts`: one missing, or one letter for two texts.
inline QStringList accessKeyProblems(const QStringList& texts) {
    QStringList problems;
    QStringList owners(128);
    for (const QString& text : texts) {
        qsizetype at = text.indexOf(u'&');
        while (at >= 0 && at + 1 < text.size() && text[at + 1] == u'&') {
            at = text.indexOf(u'&', at + 2);
        }
        if (at < 0 || at + 1 >= text.size()) {
            problems << QStringLiteral("no key: ") + text;
            continue;
        }
        const char16_t key = text[at + 1].toLower().unicode();
        QString& owner = owners[key % 128];
        if (!owner.isEmpty()) {
            problems << QStringLiteral("one key for \"%1\" and \"%2\"").arg(owner, text);
        }
        owner = text;
    }
    return problems;
}

// Over the entries of one menu.
inline QStringList accessKeyProblems(const QMenu& menu) {
    QStringList texts;
    for (const QAction* action : menu.actions()) {
        if (!action->isSeparator() && action->isVisible()) {
            texts << action->text();
        }
    }
    return accessKeyProblems(texts);
}

// Over the buttons, check boxes and labelled boxes a user sees in `dialog` (tool buttons are
// reached by the mouse; windows it owns have keys of their own), then over its menu bar and each
// of its menus.
inline QStringList accessKeyProblems(const QWidget& dialog) {
    QStringList texts;
    for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->window() == &dialog && button->isVisibleTo(&dialog) &&
            !button->text().isEmpty() && qobject_cast<const QToolButton*>(button) == nullptr) {
            texts << button->text();
        }
    }
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        if (label->window() == &dialog && label->buddy() != nullptr &&
            label->isVisibleTo(&dialog)) {
            texts << label->text();
        }
    }
    QStringList problems = accessKeyProblems(texts);
    for (const QMenuBar* bar : dialog.findChildren<QMenuBar*>()) {
        if (bar->window() != &dialog) {
            continue;
        }
        QStringList titles;
        for (const QAction* top : bar->actions()) {
            titles << top->text();
        }
        problems << accessKeyProblems(titles);
    }
    for (const QMenu* menu : dialog.findChildren<QMenu*>()) {
        const QWidget* owner = menu->parentWidget();
        while (qobject_cast<const QMenu*>(owner) != nullptr) {
            owner = owner->parentWidget();
        }
        if (owner != nullptr && owner->window() == &dialog) {
            problems << accessKeyProblems(*menu);
        }
    }
    return problems;
}

}  // namespace curvemill::testing
