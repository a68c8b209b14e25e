#ifndef OSTREL_TESTS_ROOMS_FAULTS_LOW_LOW_H
#define OSTREL_TESTS_ROOMS_FAULTS_LOW_LOW_H

#include "high/high.h"

#endif
