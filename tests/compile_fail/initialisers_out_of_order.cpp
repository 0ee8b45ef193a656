// Fields are given in their order.

#include "korrin/model/stage_values.h"

#ifdef KORRIN_WRONG
korrin::StageSize size() { return {.height = 2, .width = 1}; }
#else
korrin::StageSize size() { return {.width = 1, .height = 2}; }
#endif
