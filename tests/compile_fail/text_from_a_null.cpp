// The number zero is no text either, though it converts to a null pointer.

#include "korrin/foundation/text.h"

#ifdef KORRIN_WRONG
const korrin::Text text = 0;
#else
const korrin::Text text = "0";
#endif
