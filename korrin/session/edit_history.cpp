#include "korrin/session.h"
