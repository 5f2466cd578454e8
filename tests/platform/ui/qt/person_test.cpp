// What a person does at the machine, by the toolkit's own events and loops.
#include "tests/platform/ui/qt/screen.h"
