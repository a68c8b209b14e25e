// Where the display appears.
#ifndef OSTREL_HOST_SCREEN_H
#define OSTREL_HOST_SCREEN_H

// Before QApplication is made: without a display a screenshot is rendered off-screen. Throws Failure where a window is
// wanted and there is no display.
void chooseScreen(bool screenshot);

// While one of these lives, a display that cannot be reached ends the process with one line and status 1, in place of
// Qt's several lines and a core file.
class ScreenFailureGuard {
public:
    ScreenFailureGuard();
    ~ScreenFailureGuard();
    ScreenFailureGuard(const ScreenFailureGuard&) = delete;
    ScreenFailureGuard& operator=(const ScreenFailureGuard&) = delete;
};

#endif
