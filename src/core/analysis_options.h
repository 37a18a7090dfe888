#pragma once

#include <cstdint>
#include <string>

namespace corvane {

/// What the user has chosen: a field for each key of a dataset file and the three options that a file does
/// not hold, all under the key's name. What each one is (form, default, control, caption) is in the
/// option table alone. A tick box holds 0, 1 or 2 and is set at exactly 1; a text field is converted where it
/// is used.
struct AnalysisOptions {
    /// The options of a fresh start.
    AnalysisOptions();

    bool LSM, WLSM, ROBUSTR, RESIDUE_1, RESIDUE_2, RESIDUE_3, RESIDUE_4, RESIDUE_5, RESIDUE_6, RESIDUE_7,
        RESIDUE_8, RESIDUE_9, RESIDUE_10, RESIDUE_11, RESIDUE_12, RESIDUE_13, RESIDUE_14, HIST_PLOT_TOGETHER,
        HIST_PLOT_SEPARATE, HIST_BAR, HIST_LINE, HIST_AREA, HIST_STEP, HIST_Pie, R_GraphBMP, R_GraphJPEG,
        R_GraphPNG;
    std::int16_t UNCERTAINTY_X, UNCERTAINTY_Y, AUTO_ROW, SINGLE_COLUMN, SAME_SCALE_XY, ADD_COMMENT,
        SHOW_EXCLUDED, PLOT_YX, SHOW_LITERATURE, NoSound, PARAMETER_TEST, OLS_SLS, DISTRIBUTION_ANALYSIS,
        MOMENT_STATISTIC, DIVERSE_MEASURES, INDEX_ANALYSIS, CONCORDANCE_TEST, GENERAL_CCC, RANK_ANALYSIS,
        BALANCE_ANALYSIS, ORTHOGONAL_BALANCE, MSEP_ANALYSIS, KLEIJNEN_ANALYSIS, THRESHOLD_ANALYSIS,
        DISTANCE_ANALYSIS, WEIGHED_DEVIANCE, RESIDUAL_ANALYSIS, HISTOGRAM_PLOT, BLAND_ALTMAN_ANALYSIS,
        DEVIATION_ANALYSIS, ROBUST_STATISTICS, MSPE_BOOTSTRAP, RESIDUAL_REGRESSION_PLOT, SAVE_RESIDUE_TEXT,
        RESIDUE_WINDOW, SHOW_RESIDUAL_PLOT, SHOW_DEVIATION_PLOT, SHOW_NORMAL_PLOT, HIST_PLOT_XY,
        HIST_PLOT_DIFFERENCE, HIST_PLOT_ABSDIFF, HIST_ACCUMULATED, HIST_PERCENTAGE, HIST_2D, HIST_3D,
        R_ShowAll, R_AssignTemplate, R_OpenGraphics, R_OpenTXT, R_ShowLog, NOTES_BOLD, NOTES_BLUE, SwapXY,
        InvertXRanks, InvertYRanks;
    std::string GRID_FORMAT_XY, GRID_FORMAT_SD, TRESHOLD_RANK, TRESHOLD_XY, MSPE_BOOTSTRAP_SUBSAMPLE,
        MSPE_BOOTSTRAP_SIZE, DEVIATION_LOWER, DEVIATION_UPPER, RESIDUAL_LOWER, RESIDUAL_UPPER,
        RSTD_RESIDUE_LOWER, RSTD_RESIDUE_UPPER, DEVIATION_CI_PROB, HIST_BINS, N;
    float NOTES_SIZE;
};

/// Whether a tick box counts as set.
constexpr bool IsSet(std::int16_t tickBox) {
    return tickBox == 1;
}

} // namespace corvane
