// A ui file of a subsystem reaching up into the shell.
#include "shell/ui/MainWindow.h"
