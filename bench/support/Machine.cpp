#include "support/Machine.h"

#include <ctime>
#include <fstream>

namespace bench {

std::string MachineAndDate()
{
    std::ifstream cpuInfo("/proc/cpuinfo");
    std::string   line;
    std::string   model = "unknown processor";
    int           processors = 0;
    while (std::getline(cpuInfo, line)) {
        if (line.rfind("model name", 0) == 0) {
            model = line.substr(line.find(':') + 2);
            ++processors;
        }
    }
    char              date[32] = "";
    const std::time_t now = std::time(nullptr);
    std::strftime(date, sizeof date, "%Y-%m-%d", std::gmtime(&now));
    return model + ", " + std::to_string(processors) + " processors, " + date;
}

}
