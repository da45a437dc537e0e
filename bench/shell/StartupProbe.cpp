// The program's start-up with one difference: it quits as soon as the title page has been painted.
#include "failure/FaultTranslation.h"
#include "failure/ui/GuardedApplication.h"
#include "shell/ui/Application.h"

int main(int argc, char* argv[]) {
    curvemill::installFaultTranslation();
    curvemill::GuardedApplication qt(argc, argv);
    curvemill::StartupOptions options;
    options.quitOnFirstPaint = true;
    curvemill::Application application(qt, options);
    return application.run();
}
