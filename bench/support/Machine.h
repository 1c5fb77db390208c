#pragma once

#include <string>

namespace bench {

// "AMD EPYC, 2 processors, 2026-11-23": the title of a table of figures.
std::string MachineAndDate();

}
