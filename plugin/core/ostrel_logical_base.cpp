#include "core/ostrel_logical_base.h"

ostrel_logical_base::ostrel_logical_base(QWidget* parent) : OstrelBase(parent) {}

void ostrel_logical_base::setName(const QString&) {}

void ostrel_logical_base::ostrelTimerEvent(int interval) {
    if (interval == getSampleRate() && !_pause && !_cfg_in_progress)
        sample();
}

void ostrel_logical_base::sample() {}
