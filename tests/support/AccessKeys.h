// Test helper: every control a user reaches from the keyboard has an access key of its own.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QStringList>
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

// Over the buttons, check boxes and labelled boxes a user sees in `dialog`.
inline QStringList accessKeyProblems(const QWidget& dialog) {
    QStringList texts;
    for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->isVisibleTo(&dialog) && !button->text().isEmpty()) {
            texts << button->text();
        }
    }
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr && label->isVisibleTo(&dialog)) {
            texts << label->text();
        }
    }
    return accessKeyProblems(texts);
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

}  // namespace curvemill::testing
