// Program entry: fault translation first, then the application object and its start-up.
#include "failure/FaultTranslation.h"
#include "failure/ui/GuardedApplication.h"
#include "shell/ui/Application.h"

int main(int argc, char* argv[]) {
    curvemill::installFaultTranslation();
    curvemill::GuardedApplication qt(argc, argv);
    curvemill::StartupOptions options;
    options.document = curvemill::documentArgument(qt.arguments());
    curvemill::Application application(qt, options);
    return application.run();
}
