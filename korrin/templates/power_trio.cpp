#include "korrin/templates/plot_tables.h"

namespace korrin::templates {
namespace {

using enum PlotItemKind;
using enum Phantom;

// clang-format off
constexpr ItemRow items[] = {
    {instrument, "krn.instrument.drums.v1",     {0, 2100},       {2200, 1800}, 360, "DRUMS"},
    {amplifier,  "krn.backline.bass-amp.v1",    {-3200, 1500},   {1000, 850},  180, "BASS AMP"},
    {amplifier,  "krn.backline.guitar-amp.v1",  {3200, 1500},    {1000, 700},  180, "GUITAR AMP"},
    {microphone, "krn.audio.microphone.v1",     {-2500, -1100},  {500, 900},   180, "BASS VOCAL"},
    {microphone, "krn.audio.microphone.v1",     {2500, -1100},   {500, 900},   180, "GUITAR VOCAL"},
    {monitor,    "krn.audio.wedge.v1",          {-2500, -2350},  {900, 650},   180, "MIX 1"},
    {monitor,    "krn.audio.wedge.v1",          {2500, -2350},   {900, 650},   180, "MIX 2"},
    {monitor,    "krn.audio.wedge.v1",          {0, 650},        {900, 650},   180, "MIX 3"},
    {power,      "krn.utility.power.v1",        {-4100, 0},      {500, 500},   0,   "POWER"},
};

constexpr InputRow inputs[] = {
    {1,  "Kick",         "Beta 52A",  "Short boom", off, "",       "DRUMS"},
    {2,  "Snare",        "SM57",      "Clip",       off, "",       "DRUMS"},
    {3,  "Rack Tom",     "e904",      "Clip",       off, "",       "DRUMS"},
    {4,  "Floor Tom",    "e904",      "Clip",       off, "",       "DRUMS"},
    {5,  "Overhead L",   "C451",      "Tall boom",  on,  "",       "DRUMS"},
    {6,  "Overhead R",   "C451",      "Tall boom",  on,  "",       "DRUMS"},
    {7,  "Bass",         "Active DI", "",           on,  "Pre-EQ", "BASS AMP"},
    {8,  "Guitar",       "e906",      "Short boom", off, "",       "GUITAR AMP"},
    {9,  "Bass Vocal",   "Beta 58A",  "Tall boom",  off, "",       "BASS VOCAL"},
    {10, "Guitar Vocal", "Beta 58A",  "Tall boom",  off, "",       "GUITAR VOCAL"},
};

constexpr MixRow monitorMixes[] = {
    {1, "Bass / Vocal",   "Wedge", "Out 1", "Bass vocal, guitar vocal, kick", "MIX 1"},
    {2, "Guitar / Vocal", "Wedge", "Out 2", "Guitar vocal, bass vocal, kick", "MIX 2"},
    {3, "Drums",          "Wedge", "Out 3", "Both vocals, bass, guitar",      "MIX 3"},
};

constexpr EquipmentRow equipment[] = {
    {"Audio", "Active DI box",        1, "Venue", "With ground lift",     "BASS AMP"},
    {"Power", "Clean backline power", 2, "Venue", "Stage left and right", "POWER"},
};

constexpr NoteRow notes[] = {
    {"Changeover", "Allow 20 minutes from clear stage to line check."},
};
// clang-format on

constexpr PlotTables tables = {
    .title = "Power Trio — Festival Stage",
    .artist = "Band Name",
    .venue = "",
    .contactEmail = "",
    .stageName = "Festival Stage",
    .stageSize = {.width = 10000, .height = 7000},
    .items = items,
    .inputs = inputs,
    .monitorMixes = monitorMixes,
    .equipment = equipment,
    .notes = notes,
};
static_assert(linksResolve(tables));

}  // namespace

const PlotTables& powerTrioTables() { return tables; }

}  // namespace korrin::templates
