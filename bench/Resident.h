#pragma once
// Resident memory of this process, for the benchmarks with or without a window.

#include <fstream>
#include <string>

inline long residentKiB() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("VmRSS:", 0) == 0)
            return std::stol(line.substr(6));
    return -1;
}
