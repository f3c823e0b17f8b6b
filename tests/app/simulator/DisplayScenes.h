#pragma once

#include "simulator/DisplayFields.h"

#include <string>
#include <vector>

namespace orvim::test {

/// A state of the screen that has a stored picture, by the name of its folder.
struct DisplayScene {
    std::string name;
    DisplayFields fields;
};

/// Every scene of the golden pictures.
std::vector<DisplayScene> displayScenes();

} // namespace orvim::test
