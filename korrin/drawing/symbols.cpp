#include "korrin/drawing.h"
