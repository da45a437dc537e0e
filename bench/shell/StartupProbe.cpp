// The program's start-up with one difference: it quits as soon as the title page has been painted.
#include "shell/FaultTranslation.h"
#include "shell/ui/Application.h"
#include "shell/ui/GuardedApplication.h"

int main(int argc, char* argv[]) {
    curvemill::installFaultTranslation();
    curvemill::GuardedApplication qt(argc, argv);
    curvemill::Application application(qt, curvemill::StartupOptions{true});
    return application.run();
}
