#pragma once

// How a plot looks on paper and on a screen.
// Every public header of korrin/drawing/.

#include "korrin/drawing/outlines.h"
#include "korrin/drawing/photo_turn.h"
#include "korrin/drawing/plot_drawing.h"
#include "korrin/drawing/revision_marks.h"
#include "korrin/drawing/symbol_catalogue.h"
