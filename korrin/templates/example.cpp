#include "korrin/templates/plot_tables.h"

namespace korrin::templates {
namespace {

using enum PlotItemKind;
using enum Phantom;

// clang-format off
constexpr ItemRow items[] = {
    {instrument, "krn.instrument.drums.v1",     {0, 2300},       {2200, 1800}, 360, "DRUMS"},
    {amplifier,  "krn.backline.bass-amp.v1",    {-4100, 1800},   {1000, 850},  180, "BASS AMP"},
    {amplifier,  "krn.backline.guitar-amp.v1",  {4100, 1800},    {1000, 700},  180, "GUITAR AMP"},
    {instrument, "krn.instrument.keyboard.v1",  {-3600, -250},   {1500, 650},  360, "KEYS"},
    {microphone, "krn.audio.microphone.v1",     {0, -1400},      {500, 900},   180, "LEAD VOCAL"},
    {monitor,    "krn.audio.wedge.v1",          {-3300, -2600},  {900, 650},   192, "MIX 1"},
    {monitor,    "krn.audio.wedge.v1",          {0, -2800},      {900, 650},   180, "MIX 2"},
    {monitor,    "krn.audio.wedge.v1",          {3300, -2600},   {900, 650},   168, "MIX 3"},
    {power,      "krn.utility.power.v1",        {-5100, -100},   {500, 500},   0,   "CLEAN POWER"},
};

constexpr InputRow inputs[] = {
    {1,  "Kick",       "Beta 52A",  "Short boom", off, "Inside port", "DRUMS"},
    {2,  "Snare",      "SM57",      "Clip",       off, "Top",         "DRUMS"},
    {3,  "Rack Tom",   "e904",      "Clip",       off, "",            "DRUMS"},
    {4,  "Floor Tom",  "e904",      "Clip",       off, "",            "DRUMS"},
    {5,  "Overhead L", "C451",      "Tall boom",  on,  "",            "DRUMS"},
    {6,  "Overhead R", "C451",      "Tall boom",  on,  "",            "DRUMS"},
    {7,  "Bass",       "Active DI", "",           on,  "Pre-EQ",      "BASS AMP"},
    {8,  "Guitar",     "e906",      "Short boom", off, "",            "GUITAR AMP"},
    {9,  "Keys L",     "Active DI", "",           on,  "",            "KEYS"},
    {10, "Keys R",     "Active DI", "",           on,  "",            "KEYS"},
    {11, "Lead Vocal", "Beta 58A",  "Tall boom",  off, "",            "LEAD VOCAL"},
};

constexpr MixRow monitorMixes[] = {
    {1, "Keys",       "Wedge", "Out 1", "Keys and lead vocal",      "MIX 1"},
    {2, "Lead Vocal", "Wedge", "Out 2", "Lead vocal, keys, guitar", "MIX 2"},
    {3, "Guitar",     "Wedge", "Out 3", "Guitar, vocal, kick",      "MIX 3"},
};

constexpr EquipmentRow equipment[] = {
    {"Audio",   "Active DI box",     3, "Venue", "With ground lift", "KEYS"},
    {"Staging", "Drum rug",          1, "Venue", "Minimum 2 × 2 m",  "DRUMS"},
    {"Power",   "Clean 230 V power", 2, "Venue", "Stage left",       "CLEAN POWER"},
};

constexpr NoteRow notes[] = {
    {"Advance Notes", "Please confirm stage dimensions, console model, and local backline before show day."},
    {"Soundcheck",    "Allow 45 minutes after the stage is fully patched and line checked."},
};
// clang-format on

constexpr PlotTables tables = {
    .title = "Example — Festival Main Stage",
    .artist = "The Example Band",
    .venue = "Summer Arena",
    .contactEmail = "production@example.com",
    .stageName = "Main Stage",
    .stageSize = {.width = 12000, .height = 8000},
    .items = items,
    .inputs = inputs,
    .monitorMixes = monitorMixes,
    .equipment = equipment,
    .notes = notes,
};
static_assert(linksResolve(tables));

}  // namespace

const PlotTables& exampleTables() { return tables; }

}  // namespace korrin::templates
