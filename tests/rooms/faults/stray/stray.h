#include "low/low.h"
