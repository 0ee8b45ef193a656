#include "korrin/templates/plot_tables.h"

namespace korrin::templates {
namespace {

using enum PlotItemKind;
using enum Phantom;

// clang-format off
constexpr ItemRow items[] = {
    {performer,  "krn.people.performer.v1",            {0, -350},      {700, 700},  180, "ARTIST"},
    {instrument, "krn.instrument.acoustic-guitar.v1",  {-850, -50},    {650, 1200}, 180, "ACOUSTIC"},
    {microphone, "krn.audio.microphone.v1",            {0, -1050},     {500, 900},  180, "VOCAL"},
    {monitor,    "krn.audio.wedge.v1",                 {0, -2150},     {900, 650},  180, "MIX 1"},
    {power,      "krn.utility.di.v1",                  {-1250, -700},  {500, 350},  0,   "ACTIVE DI"},
    {power,      "krn.utility.power.v1",               {-2700, -200},  {500, 500},  0,   "POWER"},
};

constexpr InputRow inputs[] = {
    {1, "Acoustic Guitar", "Active DI", "",          on,  "Post pedalboard", "ACOUSTIC"},
    {2, "Lead Vocal",      "Beta 58A",  "Tall boom", off, "",                "VOCAL"},
};

constexpr MixRow monitorMixes[] = {
    {1, "Artist", "Wedge", "Out 1", "Vocal forward, acoustic guitar", "MIX 1"},
};

constexpr EquipmentRow equipment[] = {
    {"Audio", "Active DI box", 1, "Venue", "With ground lift", "ACTIVE DI"},
    {"Power", "230 V power",   1, "Venue", "Stage left",       "POWER"},
};

constexpr NoteRow notes[] = {
    {"Advance", "Please confirm the vocal microphone, DI, wedge, and a clear centre-stage performance area."},
};
// clang-format on

constexpr PlotTables tables = {
    .title = "Solo Acoustic — Venue Advance",
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

const PlotTables& soloAcousticTables() { return tables; }

}  // namespace korrin::templates
