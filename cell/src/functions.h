// The functions that an expression can call beside those of the expression library.
#ifndef OSTREL_CELL_FUNCTIONS_H
#define OSTREL_CELL_FUNCTIONS_H

#include <cstdint>
#include <string>
#include <vector>

namespace mu {
class Parser;
}

namespace ostrelcell {

// What one call in one expression remembers from scan to scan.
struct CallState {
    bool started = false;
    double value = 0;
    double spare = 0;  // noise: the second half of a pair
    bool spareReady = false;
    uint64_t random = 0;
};

// What the functions see while expressions are evaluated on this thread. Without one set they answer 0 and remember
// nothing, so that an expression can be compiled without being run.
struct CallContext {
    std::vector<CallState>* states = nullptr;
    double t = 0;
    double dt = 0;
};

class CallContextScope {
public:
    explicit CallContextScope(CallContext& context);
    ~CallContextScope();
    CallContextScope(const CallContextScope&) = delete;
    CallContextScope& operator=(const CallContextScope&) = delete;
};

struct FunctionInfo {
    const char* name;
    int least;       // arguments
    int most;        // -1: any number
    bool remembers;  // each call gets a state of its own as a first argument that nobody writes
};

// Null for a name that is no function.
const FunctionInfo* functionInfo(const std::string& name);
std::vector<std::string> functionNames();

// Teaches the parser every function that is not its own.
void defineFunctions(mu::Parser& parser);

}  // namespace ostrelcell

#endif
