// What most tests include, read once for all of them where that saves time (cmake/HxTargets.cmake). Tests
// include what they use all the same.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <string>
#include <thread>
#include <vector>
