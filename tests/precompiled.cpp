#include "tests/precompiled.h"
