// Graph documents through the main window: each kind saved and opened again in a new window draws
// the same picture and saves the same bytes, a changed document is marked and asked about, a
// refused file changes nothing, and the commands, the recent list and a drop reach them.
#include <QFile>
#include <QMenu>
#include <QMimeData>
#include <QProcess>
#include <QtTest>

#include "engine/ui/LogBaseDialog.h"
#include "mathtools/ui/MathDialog.h"
#include "parametric/ui/CurveWindow.h"
#include "shell/ui/Application.h"
#include "shell/ui/DocumentCommands.h"
#include "shell/ui/MathCommands.h"
#include "tests/support/FakeHistory.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/TempDirectory.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class GraphDocumentShellTest : public MainWindowFixture {
    Q_OBJECT

    TempDirectory folder;
    QString file(const QString& name) const {
        return QString::fromStdString((folder.path() / name.toStdString()).string());
    }
    static QByteArray bytes(const QString& path) {
        QFile in(path);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }
    DocumentCommands& documents() const { return window->documents(); }
    // The canvas's picture once its layout has settled and every slice of a surface is drawn.
    QImage picture() {
        QCoreApplication::processEvents();
        canvas()->repaint();
        if (!QTest::qWaitFor([this] { return !canvas()->surfaceRedraw().running(); }, 10000)) {
            return {};
        }
        return canvas()->backBuffer();
    }
    // `path` opened in a new window; true once its graph is drawn.
    bool openInNewWindow(const QString& path, FakeHistory* history = nullptr) {
        openWindow({1000, 700});
        window->setHistoryPort(history);
        QSignalSpy shown(&documents(), &DocumentCommands::documentShown);
        return documents().openAsked(path) && shown.wait(30000) && shown.first().first().toBool();
    }
    bool drawTwoVariables(int command, const QString& text, GraphKind kind) {
        return enterTwoVariables(command, text, u"3"_s) != nullptr &&
               QTest::qWaitFor([&] { return window->graphKind() == kind; }, 20000);
    }

  private Q_SLOTS:
    void initTestCase() { qputenv("XDG_CONFIG_HOME", QFile::encodeName(file(u"config"_s))); }
    void cleanup() { window.reset(); }

    void eachKindOpensAsItWasSaved_data() {
        QTest::addColumn<int>("kind");
        QTest::newRow("function, second function, derivative, zoomed X") << 0;
        QTest::newRow("equation, zoomed Y") << 1;
        QTest::newRow("surface, turned and zoomed out") << 2;
        QTest::newRow("polar curve, zoomed in") << 3;
        QTest::newRow("surface with a pole, in Z limits") << 4;
    }
    void eachKindOpensAsItWasSaved() {
        QFETCH(int, kind);
        // The curve's formula holds log(: drawing it asks for the base, opening it must not.
        int logQuestions = 0;
        QTimer logAnswer;
        logAnswer.callOnTimeout([&] {
            if (auto* ask = qobject_cast<LogBaseDialog*>(QApplication::activeModalWidget())) {
                ++logQuestions;
                ask->accept();
            }
        });
        logAnswer.start(5);
        openWindow({1000, 700});
        if (kind == 0) {
            QVERIFY(drawFunction(false, u"sin(x)/x*80"_s, u"-4*pi"_s, u"20"_s));
            QVERIFY(drawFunction(true, u"x*2"_s));
            MathDialog* math = window->math().mathDialog();
            QSignalSpy derivative(math, &MathDialog::runFinished);
            math->drawDerivative();
            QVERIFY(derivative.wait(20000));
            action(40003)->trigger();
        } else if (kind == 1) {
            QVERIFY(drawTwoVariables(40086, u"x^2+y^2-4"_s, GraphKind::Equation));
            action(40004)->trigger();
        } else if (kind == 2 || kind == 4) {
            QVERIFY(drawTwoVariables(40091, kind == 2 ? u"sin(x)*cos(y)"_s : u"1/(x^2+y^2)"_s,
                                     GraphKind::Surface3D));
            action(40101)->trigger();
            action(40008)->trigger();
        } else {
            action(40302)->trigger();
            auto* input = shown<CurveWindow>(u"Polar Curve"_s);
            QVERIFY(input != nullptr);
            retype(*input, curve_ids::kFirstFormula, u"1+log(10)*cos(t)"_s);
            control<QPushButton>(*input, curve_ids::kOk)->click();
            QTRY_COMPARE_WITH_TIMEOUT(window->graphKind(), GraphKind::Curve, 20000);
            action(40005)->trigger();
        }
        const QString saved = file(u"kind%1.curvemill"_s.arg(kind));
        QVERIFY(documents().saveTo(saved));
        // A range is kept as typed.
        QVERIFY(kind != 0 || bytes(saved).contains(R"("begin": "-4*pi")"));
        const QImage before = picture();
        const GraphKind shownKind = window->graphKind();

        FakeHistory history;
        ModalAnswer noRefusal;
        QVERIFY2(openInNewWindow(saved, &history), qPrintable(noRefusal.text));
        QCOMPARE(window->graphKind(), shownKind);
        QVERIFY(history.entries.empty());
        QCOMPARE(logQuestions, kind == 3 ? 1 : 0);
        QVERIFY(picture() == before);
#ifdef CURVEMILL_CLI_PATH
        // The command line draws the document as the window shows it.
        const QString rendered = file(u"rendered.png"_s);
        QProcess cli;
        cli.start(QStringLiteral(CURVEMILL_CLI_PATH),
                  {u"render"_s, saved, u"-o"_s, rendered, u"--size"_s,
                   u"%1x%2"_s.arg(before.width()).arg(before.height())});
        QVERIFY(cli.waitForFinished(60000) && cli.exitCode() == 0);
        QVERIFY(QImage(rendered).convertToFormat(before.format()) == before);
#endif
        QVERIFY(!window->isWindowModified());
        QCOMPARE(window->windowTitle(), u"kind%1.curvemill[*] - CURVEMILL"_s.arg(kind));
        QVERIFY(documents().saveTo(file(u"again.curvemill"_s)));
        QCOMPARE(bytes(file(u"again.curvemill"_s)), bytes(saved));
    }

    // A change marks the title; closing asks with Save as the default, Cancel keeps the window,
    // Save writes the document, and an unchanged one closes without a word.
    void changedDocumentIsMarkedAndAskedAbout() {
        openWindow();
        QVERIFY(drawFunction(false, u"x^2"_s, u"-5"_s, u"5"_s));
        const QString path = file(u"changed.curvemill"_s);
        QVERIFY(documents().saveTo(path));
        const QByteArray first = bytes(path);
        action(40005)->trigger();
        QTRY_VERIFY(window->isWindowModified());
        {
            QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
            ModalAnswer cancel(QMessageBox::Cancel);
            cancel.answered = [&] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                defaultButton = box->standardButton(box->defaultButton());
            };
            QVERIFY(!window->close());
            QVERIFY(cancel.seen);
            QCOMPARE(defaultButton, QMessageBox::Save);
        }
        ModalAnswer save(QMessageBox::Save);
        QVERIFY(window->close());
        QVERIFY(save.seen && bytes(path) != first);
        QVERIFY(openInNewWindow(path));
        ModalAnswer none;
        QVERIFY(window->close());
        QVERIFY(!none.seen);
    }

    // A file the reader refuses is named with the reader's reason; the graph and title stay.
    void refusedDocumentChangesNothing() {
        openWindow();
        QVERIFY(drawFunction(false, u"x"_s, u"-1"_s, u"1"_s));
        const QImage before = picture();
        const QString path = file(u"bad.curvemill"_s);
        for (const QByteArray& content : {"not json"_ba, R"({"format": "other", "version": 1})"_ba,
                                          R"({"format": "curvemill-graph", "version": 2})"_ba}) {
            QFile out(path);
            QVERIFY(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
            out.write(content);
            out.close();
            ModalAnswer refusal;
            QVERIFY(!documents().openAsked(path));
            QVERIFY2(refusal.seen && refusal.text.startsWith(path), qPrintable(refusal.text));
            QVERIFY(refusal.text.size() > path.size() + 2);
            QCOMPARE(window->graphKind(), GraphKind::Function2D);
            QCOMPARE(window->windowTitle(), u"CURVEMILL"_s);
            QVERIFY(picture() == before);
        }
    }

    // The commands' keys and enabling, the recent list with its access keys, a drop, and the
    // document named on the command line.
    void commandsRecentListDropAndArgument() {
        openWindow();
        QCOMPARE(action(40401)->shortcut(), QKeySequence(u"Ctrl+O"_s));
        QCOMPARE(action(40403)->shortcut(), QKeySequence(u"Ctrl+S"_s));
        QVERIFY(action(40401)->isEnabled() && !action(40403)->isEnabled());
        QVERIFY(!action(40404)->isEnabled());
        QVERIFY(drawFunction(false, u"x^3"_s, u"-2"_s, u"2"_s));
        QVERIFY(action(40403)->isEnabled() && action(40404)->isEnabled());
        const QString path = file(u"recent.curvemill"_s);
        QVERIFY(documents().saveTo(path));
        QVERIFY(action(40402)->isEnabled());
        const QList<QAction*> recent = action(40402)->menu()->actions();
        QVERIFY(!recent.isEmpty());
        QCOMPARE(recent.first()->text(), u"&1 recent.curvemill"_s);

        openWindow();
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QSignalSpy shown(&documents(), &DocumentCommands::documentShown);
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(window.get(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(window.get(), &drop);
        QVERIFY(shown.wait(20000));
        QCOMPARE(window->windowTitle(), u"recent.curvemill[*] - CURVEMILL"_s);
        action(40110)->trigger();  // back to the title page: the document's name goes
        QCOMPARE(window->windowTitle(), u"CURVEMILL"_s);

        QCOMPARE(documentArgument({u"curvemill"_s, u"-style"_s, u"a.curvemill"_s}),
                 u"a.curvemill"_s);
        QCOMPARE(documentArgument({u"curvemill"_s}), QString());
    }
};

QTEST_MAIN(GraphDocumentShellTest)
#include "GraphDocumentShellTest.moc"
