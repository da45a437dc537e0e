// The failure layer reaching up into a subsystem.
#include "engine/Formula.h"
