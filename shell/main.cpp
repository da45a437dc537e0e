// Program entry: fault translation first, then the application object and its start-up.
#include "shell/FaultTranslation.h"
#include "shell/ui/Application.h"
#include "shell/ui/GuardedApplication.h"

int main(int argc, char* argv[]) {
    curvemill::installFaultTranslation();
    curvemill::GuardedApplication qt(argc, argv);
    curvemill::Application application(qt);
    return application.run();
}
