#include "korrin/templates/plot_tables.h"

namespace korrin::templates {
namespace {

using enum PlotItemKind;
using enum Phantom;

// clang-format off
constexpr ItemRow items[] = {
    {performer,  "krn.people.performer.v1",     {-1600, 500},    {700, 700},  180, "ARTIST 1"},
    {performer,  "krn.people.performer.v1",     {1600, 500},     {700, 700},  180, "ARTIST 2"},
    {instrument, "krn.instrument.keyboard.v1",  {-1600, -250},   {1200, 600}, 0,   "PLAYBACK"},
    {instrument, "krn.instrument.keyboard.v1",  {1600, -250},    {1500, 650}, 0,   "KEYS"},
    {microphone, "krn.audio.microphone.v1",     {-1600, -1250},  {500, 900},  180, "VOCAL 1"},
    {microphone, "krn.audio.microphone.v1",     {1600, -1250},   {500, 900},  180, "VOCAL 2"},
    {monitor,    "krn.audio.iem.v1",            {-2800, 500},    {400, 400},  0,   "IEM 1"},
    {monitor,    "krn.audio.iem.v1",            {2800, 500},     {400, 400},  0,   "IEM 2"},
    {power,      "krn.utility.di.v1",           {0, -250},       {500, 350},  0,   "DI BOXES"},
    {power,      "krn.utility.power.v1",        {0, 1400},       {500, 500},  0,   "CLEAN POWER"},
};

constexpr InputRow inputs[] = {
    {1, "Playback L", "Active DI", "",          on,  "Line level", "PLAYBACK"},
    {2, "Playback R", "Active DI", "",          on,  "Line level", "PLAYBACK"},
    {3, "Keys L",     "Active DI", "",          on,  "",           "KEYS"},
    {4, "Keys R",     "Active DI", "",          on,  "",           "KEYS"},
    {5, "Vocal 1",    "Beta 58A",  "Tall boom", off, "",           "VOCAL 1"},
    {6, "Vocal 2",    "Beta 58A",  "Tall boom", off, "",           "VOCAL 2"},
};

constexpr MixRow monitorMixes[] = {
    {1, "Artist 1", "IEM", "Out 1/2", "Stereo playback, keys, both vocals", "IEM 1"},
    {2, "Artist 2", "IEM", "Out 3/4", "Stereo playback, keys, both vocals", "IEM 2"},
};

constexpr EquipmentRow equipment[] = {
    {"Audio", "Active DI box",     4, "Venue", "Playback and keys",   "DI BOXES"},
    {"Audio", "Stereo IEM system", 2, "Venue", "One for each artist", "IEM 1"},
    {"Power", "Clean 230 V power", 1, "Venue", "Upstage centre",      "CLEAN POWER"},
};

constexpr NoteRow notes[] = {
    {"Playback", "Playback is delivered at line level on balanced left and right outputs."},
};
// clang-format on

constexpr PlotTables tables = {
    .title = "Electronic Duo — Stereo Playback",
    .artist = "Artist Name",
    .venue = "",
    .contactEmail = "",
    .stageName = "Main Stage",
    .stageSize = {.width = 8000, .height = 6000},
    .items = items,
    .inputs = inputs,
    .monitorMixes = monitorMixes,
    .equipment = equipment,
    .notes = notes,
};
static_assert(linksResolve(tables));

}  // namespace

const PlotTables& electronicDuoTables() { return tables; }

}  // namespace korrin::templates
