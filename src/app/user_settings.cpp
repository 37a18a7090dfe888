#include "app/user_settings.h"

#include "core/option_table.h"

namespace corvane {
namespace {

constexpr const char* application = "VenlaK4";
constexpr const char* section = "Config";

struct StoredBox {
    const char* name;
    std::int16_t AnalysisOptions::*box;
};

constexpr StoredBox storedBoxes[] = {
    {"AutoIncreaseRows", &AnalysisOptions::AUTO_ROW},
    {"PasteSingleColumn", &AnalysisOptions::SINGLE_COLUMN},
    {"SameScaleXYAxis", &AnalysisOptions::SAME_SCALE_XY},
    {"AddComments", &AnalysisOptions::ADD_COMMENT},
    {"ShowExcluded", &AnalysisOptions::SHOW_EXCLUDED},
    {"PlotYXLine", &AnalysisOptions::PLOT_YX},
    {"ShowRef", &AnalysisOptions::SHOW_LITERATURE},
};

} // namespace

std::string ReadUserSettings(AnalysisOptions& options, Settings& settings) {
    std::string fault;
    const Settings::Values values = settings.Read(application, section, fault);
    for (const StoredBox& stored : storedBoxes)
        if (const auto found = values.find(stored.name); found != values.end())
            if (const auto value = ReadOptionValue(OptionOf(stored.box), found->second))
                options.*stored.box = std::get<std::int16_t>(*value);
    return fault;
}

FileResult WriteUserSettings(const AnalysisOptions& options, Settings& settings) {
    Settings::Values values;
    for (const StoredBox& stored : storedBoxes)
        values[stored.name] = std::to_string(options.*stored.box);
    return settings.Write(application, section, values);
}

} // namespace corvane
