#pragma once

// How a plot looks on paper and on a screen.
// Every public header of korrin/drawing/.
