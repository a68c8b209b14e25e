// Characters that a TOML file may have in quotes and comments only.
#ifndef OSTREL_CELL_STRAYCHARACTER_H
#define OSTREL_CELL_STRAYCHARACTER_H

#include <string>

namespace ostrelcell {

// The line of the first character beyond ASCII that stands outside of quotes and comments, or 0. TOML has none there;
// the parser is not asked about them, since it is not defined what some releases of it do with letters such as a stray
// micro sign.
int lineOfStrayCharacter(const std::string& text);

}  // namespace ostrelcell

#endif
