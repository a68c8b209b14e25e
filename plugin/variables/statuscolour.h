// The colour that a status word asks for: red, green and blue are a bit each.
#ifndef OSTREL_VARIABLES_STATUSCOLOUR_H
#define OSTREL_VARIABLES_STATUSCOLOUR_H

// Each full or not at all.
struct StatusColour {
    bool isKnown;  // false for a word that holds more than a colour
    bool red;
    bool green;
    bool blue;
};

// Bit 0, which asks for blinking, does not count. Black for a word without a colour.
constexpr StatusColour statusColour(int word) {
    constexpr int blinking = 1;
    constexpr int blue = 256;
    constexpr int green = 512;
    constexpr int red = 1024;
    const int code = word & ~blinking;
    if ((code & ~(red | green | blue)) != 0)
        return {false, false, false, false};
    return {true, (code & red) != 0, (code & green) != 0, (code & blue) != 0};
}

constexpr bool asksForBlinking(int word) {
    return (word & 1) != 0;
}

#endif
