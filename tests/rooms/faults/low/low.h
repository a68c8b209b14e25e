#include "high/high.h"
