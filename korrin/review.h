#pragma once

// From a finding to a repaired, compared and merged plot.
// Every public header of korrin/review/.
