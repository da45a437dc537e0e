// The help window over the built archive, the missing-help question, and F1 and help buttons
// reaching their topics.
#include <QHelpContentWidget>
#include <QHelpEngineCore>
#include <QHelpIndexWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>

#include "engine/Formula.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "help/HelpTopics.h"
#include "help/ui/ContextHelp.h"
#include "help/ui/HelpBrowser.h"
#include "help/ui/HelpViewer.h"
#include "help/ui/HelpWindow.h"
#include "output/ui/SaveToFileDialog.h"
#include "tests/support/DialogControls.h"
#include "tests/support/ModalAnswer.h"
#include "tests/support/RecordingReporter.h"
#include "twovar/TwoVariableSettings.h"
#include "twovar/ui/TwoVariableWindow.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

namespace {

QString archivePath() {
    return QString::fromUtf8(CURVEMILL_HELP_ARCHIVE);
}

QString shownTopic(const HelpViewer& viewer) {
    return viewer.window() != nullptr ? viewer.window()->page()->source().toString() : QString();
}

}  // namespace

class HelpViewerTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    // Every topic is in the archive with its title, the jump targets exist, and every link and
    // picture inside a topic leads somewhere: a broken one would show an empty page.
    void archiveHoldsEveryTopicAndEveryLinkResolves() {
        QTemporaryDir dir;
        QHelpEngineCore engine(dir.filePath(u"check.qhc"_s));
        engine.setReadOnly(false);
        QVERIFY(engine.setupData());
        QVERIFY2(engine.registerDocumentation(archivePath()), qPrintable(engine.error()));
        const QString base = QString::fromStdString(helpTopicAddress(1)).chopped(9);
        QMap<QString, QString> texts;
        for (int topic = 1; topic <= kHelpTopicCount; ++topic) {
            const QUrl url(QString::fromStdString(helpTopicAddress(topic)));
            const QString text = QString::fromUtf8(engine.fileData(url));
            QVERIFY2(text.contains(u"<h1>"_s), qPrintable(url.toString()));
            texts.insert(url.fileName(), text);
        }
        QVERIFY(texts[u"file19.htm"_s].contains(u"id=\"logbase\""_s));
        QVERIFY(texts[u"file29.htm"_s].contains(u"id=\"switch\""_s));
        const QRegularExpression link(u"(?:href|src)=\"([^\"#:]+)(?:#([^\"]+))?\""_s);
        for (auto it = texts.cbegin(); it != texts.cend(); ++it) {
            for (const auto& match : link.globalMatch(it.value())) {
                const QString target = match.captured(1);
                const QString where = it.key() + u" -> "_s + match.captured(0);
                QVERIFY2(!engine.fileData(QUrl(base + target)).isEmpty(), qPrintable(where));
                if (!match.captured(2).isEmpty()) {
                    QVERIFY2(texts.value(target).contains(u"id=\""_s + match.captured(2) + u'"'),
                             qPrintable(where));
                }
            }
        }
    }

    void missingArchiveAsksEveryTimeButLooksOnce() {
        int lookups = 0;
        int webPages = 0;
        HelpViewer viewer(
            [&] {
                ++lookups;
                return u"/nonexistent/CurveMillHelp.qch"_s;
            },
            [&] { ++webPages; });
        for (const auto answer : {QMessageBox::No, QMessageBox::No, QMessageBox::Yes}) {
            ModalAnswer box(answer);
            QCOMPARE(viewer.showHelpTopic(19, "logbase"), nullptr);
            QVERIFY(box.seen);
            QCOMPARE(box.text, QString::fromLatin1(kMsgHelpMissing));
            QCOMPARE(box.caption, u"ERROR"_s);
            QVERIFY(box.ownerless);
        }
        QCOMPARE(lookups, 1);
        QCOMPARE(webPages, 1);
    }

    void topicsOpenAtTheirAnchorAndTheIndexFindsThem() {
        HelpViewer viewer(archivePath, [] {});
        QWidget* window = viewer.showHelpTopic(19, "logbase");
        QVERIFY(window != nullptr);
        QCOMPARE(window->windowTitle(), u"Curve Mill Help"_s);
        QCOMPARE(shownTopic(viewer), u"qthelp://org.curvemill.help/doc/file19.htm#logbase"_s);
        QCOMPARE(viewer.showHelpTopic(kHelpHomeTopic), window);
        QVERIFY(shownTopic(viewer).endsWith(u"/file16.htm"_s));

        HelpWindow& help = *viewer.window();
        auto* contents = help.findChild<QHelpContentWidget*>(u"helpContents"_s);
        const QUrl gettingStarted(QString::fromStdString(helpTopicAddress(1)));
        QTRY_VERIFY(contents->indexOf(gettingStarted).isValid());
        const QRect title = contents->visualRect(contents->indexOf(gettingStarted));
        QTest::mouseClick(contents->viewport(), Qt::LeftButton, {}, title.center());
        QCOMPARE(help.page()->source(), gettingStarted);

        help.sidePanel()->setCurrentIndex(1);
        // The index is read from the archive in the background.
        auto* index = help.findChild<QHelpIndexWidget*>(u"helpIndex"_s);
        QTRY_VERIFY(index->model()->rowCount() > 0);
        QTest::keyClicks(help.indexFilter(), u"Graph.dat"_s);
        QTest::keyClick(help.indexFilter(), Qt::Key_Return);
        QTRY_VERIFY(shownTopic(viewer).endsWith(u"/file26.htm"_s));
        QTest::keyClick(help.page(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(help.page()->source(), gettingStarted);
    }

    // F1 in a box and the Help of an error box reach the topics the table gives them. The input
    // window's modes have topics of their own; its boxes and Help button reach theirs (its error
    // boxes are the 2D dialog's), and so does the Save To File dialog.
    void f1AndHelpButtonsOpenTheirTopics() {
        Formula formula;
        TwoDGraph graph;
        GraphView view;
        RecordingReporter reporter;
        Worker worker{reporter};
        HelpViewer viewer(archivePath, [] {});
        ContextHelp contextHelp(viewer);
        TwoDGraphDialog dialog(TwoDGraphRole::Main, formula, graph, view, worker);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));

        // Which box leads where is the help table's (HelpTable tests); one box shows F1 asks it.
        auto* edit = control<QLineEdit>(dialog, twod_ids::kXBegin);
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_F1);
        QVERIFY(shownTopic(viewer).endsWith(u"/file4.htm"_s));

        retype(dialog, twod_ids::kXBegin, u"-5"_s);
        retype(dialog, twod_ids::kXEnd, u"5"_s);
        retype(dialog, twod_ids::kFormula, u"2x"_s);
        ModalAnswer box(QMessageBox::Help);
        QTest::mouseClick(control<QPushButton>(dialog, twod_ids::kOk), Qt::LeftButton);
        QVERIFY(box.seen);
        QVERIFY(box.text.endsWith(u"INVALID ENTRY"_s));
        QVERIFY(shownTopic(viewer).endsWith(u"/file5.htm"_s));
        QVERIFY(!dialog.isRunning());
        dialog.hide();

        TwoVariableSettings settings;
        TwoVariableWindow input(formula, settings, worker, nullptr, nullptr);
        const std::pair<TwoVariableMode, QString> modes[] = {
            {TwoVariableMode::kSurface, u"/file18.htm"_s},
            {TwoVariableMode::kEquation, u"/file17.htm"_s}};
        for (const auto& [mode, topic] : modes) {
            input.prepare(mode);
            input.show();
            QVERIFY(QTest::qWaitForWindowExposed(&input));
            QWidget* box = input.findChild<QWidget*>(QString::number(twovar_ids::kUsePrompts));
            box->setFocus();
            QTest::keyClick(box, Qt::Key_F1);
            QVERIFY2(shownTopic(viewer).endsWith(topic), qPrintable(topic));
        }
        input.prepare(TwoVariableMode::kSurface);
        control<QPushButton>(input, twovar_ids::kHelp)->click();
        QVERIFY(shownTopic(viewer).endsWith(u"/file18.htm"_s));
        input.hide();

        GraphPicture picture;
        picture.screenSize = picture.documentSize = QSize(200, 100);
        SaveToFileDialog save(picture);
        save.show();
        QVERIFY(QTest::qWaitForWindowExposed(&save));
        QTest::keyClick(&save, Qt::Key_F1);
        QVERIFY(shownTopic(viewer).endsWith(u"/file27.htm"_s));
        viewer.showHelpTopic(1, nullptr);
        control<QPushButton>(save, save_ids::kHelp)->click();
        QVERIFY(shownTopic(viewer).endsWith(u"/file27.htm"_s));
    }
};

QTEST_MAIN(HelpViewerTest)
#include "HelpViewerTest.moc"
