// Makes the pictures of the help topics with the program's own windows:
//   curvemill-help-screenshots <output folder> <folder holding the starter Graph.dat>
// Run by the help_screenshots target; the pictures are kept with the topics.
#include <cstdio>

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QImage>
#include <QTimer>

#include "engine/Formula.h"
#include "failure/FailureReporter.h"
#include "failure/ui/QtFailurePlatform.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/FontSubstitutes.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "graph3d/SurfaceScene.h"
#include "history/HistoryStore.h"
#include "history/ui/HistoryService.h"
#include "history/ui/HistoryWindow.h"
#include "shell/ui/MainWindow.h"
#include "worker/ui/Worker.h"

namespace {

void settle(int ms = 150) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

bool save(QWidget& widget, const QDir& out, const char* name) {
    settle();
    const QImage picture = widget.grab().toImage();
    const bool ok = picture.save(out.filePath(QString::fromLatin1(name)), "PNG");
    std::printf("%s %s\n", ok ? "wrote" : "FAILED", name);
    return ok;
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s OUTPUT_FOLDER HISTORY_FOLDER\n", argv[0]);
        return 2;
    }
    QApplication qt(argc, argv);
    using namespace curvemill;
    // The fonts the program itself draws with.
    installFontSubstitutes();
    const QDir out(QString::fromLocal8Bit(argv[1]));
    Formula formula;
    TwoDGraph graph;
    GraphView view;
    SurfaceScene surface;
    QtFailurePlatform platform;
    RestartingFailureReporter reporter(platform);
    Worker worker(reporter);
    HistoryStore store;
    HistoryService history(store, reporter, argv[2]);
    MainWindow window(MainWindowParts{formula, graph, view, reporter, worker, surface});
    history.setDialogParent(&window);
    window.setHistoryPort(&history);
    window.resize(720, 480);
    window.show();
    history.loadAtStartup();
    bool ok = save(window, out, "titlepage.png");

    TwoDGraphDialog* dialog = window.twoDGraphDialog(false);
    dialog->setEntry(QStringLiteral("sin(x)/x*80"), QStringLiteral("-20"), QStringLiteral("20"));
    dialog->show();
    ok = save(*dialog, out, "function-dialog.png") && ok;

    QEventLoop drawn;
    QObject::connect(dialog, &TwoDGraphDialog::runFinished, &drawn, &QEventLoop::quit);
    dialog->accept();
    drawn.exec();
    ok = save(window, out, "graph.png") && ok;

    window.twoDGraphDialog(false)->show();
    history.showPreviousEntries(HistoryClient{
        [] { return TypedEntry{"sin(x)/x*80", "-20", "20", "$", "$", EntrySection::Graphs}; },
        [](const TypedEntry&) {}});
    history.previousEntries().resize(640, 320);
    ok = save(history.previousEntries(), out, "history.png") && ok;
    // Nothing of this run belongs in the starter history.
    worker.stop();
    return ok ? 0 : 1;
}
