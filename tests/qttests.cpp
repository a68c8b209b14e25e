#include "qttests.h"

#include <cstdio>
#include <cstring>
#include <vector>

namespace {

std::vector<NamedRun>& allRuns() {
    static std::vector<NamedRun> runs;
    return runs;
}

}  // namespace

bool addRun(const NamedRun& run) {
    allRuns().push_back(run);
    return true;
}

int main(int argc, char** argv) {
    for (const NamedRun& run : allRuns()) {
        if (argc < 2 || std::strcmp(run.name, argv[1]) != 0)
            continue;
        // The program's own name stays the first argument.
        argv[1] = argv[0];
        return run.run(argc - 1, argv + 1);
    }
    std::fprintf(stderr, "usage: %s NAME [OPTION OF QTTEST...]; there are:\n", argv[0]);
    for (const NamedRun& run : allRuns())
        std::fprintf(stderr, "  %s\n", run.name);
    return 2;
}
