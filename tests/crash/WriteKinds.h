// The kinds of write the kill harness cuts, each with the scripts that make it again and
// again. A new writer joins with one more entry in allKinds().

#pragma once

#include <string>
#include <utility>
#include <vector>

namespace killwrites {

// One start of the driver: what it reads on stdin, a command a line.
using Session = std::vector<std::string>;

struct Kind {
    std::string name;
    std::string target;            // the file whose writes are being cut
    std::vector<Session> prepare;  // run to the end once: the folder every run starts from
    std::vector<Session> script;   // the writes the kills land in
    Session check;                 // the next start, which reads the target
    std::string expectedMsgBox;    // the one message box the check shows, when reading says so
    // Files the folder holds before the first prepare session: name and bytes.
    std::vector<std::pair<std::string, std::string>> files = {};
};

std::vector<Kind> allKinds();

}  // namespace killwrites
