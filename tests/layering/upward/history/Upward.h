// A core file reaching into its ui part.
#include "history/ui/HistoryWindow.h"
