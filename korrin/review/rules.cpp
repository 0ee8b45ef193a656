#include "korrin/review.h"
