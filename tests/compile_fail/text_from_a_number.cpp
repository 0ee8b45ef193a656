// A text is made of characters alone.

#include "korrin/foundation/text.h"

#ifdef KORRIN_WRONG
const korrin::Text text = 7;
#else
const korrin::Text text = "7";
#endif
