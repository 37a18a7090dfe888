#include "report/papers.h"

#include <algorithm>

namespace corvane {
namespace {

/// In the order of a report's references. Their wording is printed: misprints, and the two entries that run
/// on, belong to it.
constexpr Paper papers[] = {
    {.key = "agresti1996",
     .cited = "Agresti (1996)",
     .entry = "Agresti, A. 1996. An introduction to categorical data analysis. Wiley-Interscience, New York.",
     .inReport = 1},
    {.key = "agresti2002",
     .cited = "Agresti (2002)",
     .entry = "Agresti, A. 2002. Categorical data analysis (2nd. ed.). John Wiley & Sons, New York.",
     .inReport = 2},
    {.key = "bland1986",
     .cited = "Bland and Altman (1986)",
     .entry = "Bland, J. M. and D. G. Altman. 1986. Statistical methods for assessing agreement beween two "
              "methods of clinical measurement. The Lancet. 327:307-310.",
     .inReport = 3},
    {.key = "bibby1977",
     .cited = "Bibby and Toutenburg (1977)",
     .entry = "Bibby, J. and H. Toutenburg. 1977. Prediction and improved estimation in linear models. John "
              "Wiley & Sons, Berlin, Germany.",
     .inReport = 4,
     .inComparison = 1},
    {.key = "cochran1957",
     .cited = "Cochran and Cox (1957)",
     .entry = "Cochran, W. G. and G. M. Cox. 1957. Experimental Design. John Wiley & Sons, New York.",
     .inReport = 5,
     .inComparison = 3},
    {.key = "croux1992",
     .cited = "Croux and Rousseeuw (1992)",
     .entry = "Croux, C. and P. J. Rousseeuw. 1992. Time-efficient algorithms for two highly robust "
              "estimators of scale. Computational Statistics. 1:411-428.",
     .inReport = 6,
     .runsOn = true},
    {.key = "davis1989",
     .cited = "Davis and Stephens (1989)",
     .entry = "Davis, C. S. and M. A. Stephens. 1989. Empirical distribution function goodness-of-fit tests. "
              "Appl. Statist. 38(3):535-582.",
     .inReport = 7},
    {.key = "dent1979",
     .cited = "Dent and Blackie (1979)",
     .entry =
         "Dent, J. B. and M. J. Blackie. 1979. Systems Simulation in Agriculture. Applied Science, London.",
     .inReport = 8,
     .inComparison = 4},
    {.key = "gromeive1991",
     .cited = "Gromeive et al. (1991)",
     .entry = "Gromeive, R. A., P. Faikla, and D. L. Fledram. 1991. Reproducibility and responsiveness of "
              "health statis measures. Controlled Clinical Trials. 12:142S-158S.",
     .inReport = 9},
    {.key = "freese1960",
     .cited = "Freese (1960)",
     .entry = "Freese, F. 1960. Testing accuracy. Forest Science. 6:139-145.",
     .inReport = 10},
    {.key = "kraiklo2006",
     .cited = "Kraiklo and Greigrux (2006)",
     .entry = "Kraiklo, K. M. and H. R. Greigrux. 2006. Distance-based and stochastic uncertainty analysis "
              "for multi-criteria decision analysis in Excel using Visual Basic for applications. "
              "Environmental Modelling & Software. 21:1695-1710.",
     .inReport = 11},
    {.key = "isobe1990",
     .cited = "Isobe et al. (1990)",
     .entry = "Isobe, T., E. D. Drolestul, M. G. Akritas, and G. J. Babu. 1990. Linear regression in "
              "astronomy. I. The Astrophysical Journal. 364:104-113.",
     .inReport = 12},
    {.key = "king2001a",
     .cited = "King and Chinchilli (2001a)",
     .entry = "King, T. S. and V. M. Chinchilli. 2001a. A generalized concordance correlation coefficient "
              "for continuous and categorical data. Statist. Med. 20:2131-2147.",
     .inReport = 13},
    {.key = "king2001b",
     .cited = "King and Chinchilli (2001b)",
     .entry = "King, T. S. and V. M. Chinchilli. 2001b. Robust estimator of the concordance correlation "
              "coefficient. Journal of Biopharmaceutical Statistics. 11:83-105.",
     .inReport = 14},
    {.key = "kleijnen1987",
     .cited = "Kleijnen (1987)",
     .entry = "Kleijnen, J. P. C. 1987. Statistical Tools for Simulation Practitioners. Marcel Dekker, New "
              "York, NY.",
     .inReport = 15},
    {.key = "kleijnen1996",
     .cited = "Kleijnen et al. (1996)",
     .entry = "Kleijnen, J. P. C., B. Keisalfib, and W. Flestofi. 1996. Validation of trace-driven "
              "simulation models: Regression analysis revisited. Pages 352-359 in Proceedings of the Winter "
              "Simulation Conference, Coronado, CA. ACM.",
     .inReport = 16},
    {.key = "kleijnen1998",
     .cited = "Kleijnen et al. (1998)",
     .entry = "Kleijnen, J. P. C., B. Keisalfib, and W. Flestofi. 1998. Validation of trace-driven "
              "simulation models: a novel regression test. Management Science. 44:812-819.",
     .inReport = 17},
    {.key = "liao2003",
     .cited = "Liao (2003)",
     .entry = "Liao, J. J. Z. 2003. An improved concordance correlation coefficient. Pharmaceut. Statist. "
              "2:253-261.",
     .inReport = 18},
    {.key = "lin1989",
     .cited = "Lin (1989)",
     .entry = "Lin, L. I.-K. 1989. A concordance correlation coefficient to evaluate reproducibility. "
              "Biometrics. 45:255-268.",
     .inReport = 19,
     .inComparison = 5},
    {.key = "loague1991",
     .cited = "Loague and Green (1991)",
     .entry = "Loague, K. and R. E. Green. 1991. Statistical and graphical methods for evaluating solute "
              "transport models: Overview and application. Journal of Contaminant Hydrology. 7:51-73.",
     .inReport = 20,
     .inComparison = 6},
    {.key = "mayer1994",
     .cited = "Mayer et al. (1994)",
     .entry = "Mayer, D. G., M. A. Plufla, and A. J. Tiskoxme. 1994. Regression of real-world data on model "
              "output: an appropriate overall test of validity. Agric. Syst. 45:93-104.",
     .inReport = 21},
    {.key = "neter1996",
     .cited = "Neter et al. (1996)",
     .entry = "Neter, J., M. H. Giobro, C. J. Nachtsheim, and W. Dreisobru. 1996. Applied Linear Statistical "
              "Models (4th ed.). McGraw-Hill Publishing Co., Boston.",
     .inReport = 22,
     .inComparison = 7},
    {.key = "nickerson1997",
     .cited = "Nickerson (1997)",
     .entry = "Nickerson, C. A. E. 1997. A note on 'A concordance correlation coefficient to evaluate "
              "reproducibility'. Biometrics. 53:1503-1507.",
     .inReport = 23},
    {.key = "reynolds1984",
     .cited = "Reynolds (1984)",
     .entry =
         "Reynolds, M. R. 1984. Estimating the error in model predictions. Forest Science. 30(2):454-469.",
     .inReport = 24},
    {.key = "rousseeuw1993",
     .cited = "Rousseeuw and Croux (1993)",
     .entry = "Rousseeuw, P. J. and C. Croux. 1993. Alternatives to the median absolute deviation. Journal "
              "of the American Statistical Association. 88:1273-1283.",
     .inReport = 25,
     .runsOn = true},
    {.key = "shapiro1965",
     .cited = "Shapiro and Wilk (1965)",
     .entry = "Shapiro, S. S. and M. B. Wilk. 1965. An analysis of variance test for normality (complete "
              "samples). Biometrika. 52:591-611.",
     .inReport = 26},
    {.key = "harlow2006",
     .cited = "Harlow (2006)",
     .entry = "Harlow, T. 2006. Adequacy of predictive models. J. Model Assess. 89:225-247.",
     .inReport = 27,
     .inComparison = 8},
    {.key = "wallach1989",
     .cited = "Wallach and Goffinet (1989)",
     .entry = "Wallach, D. and B. Goffinet. 1989. Mean squared error of prediction as a criterion for "
              "evaluating and comparing system models. Ecological Modelling. 44:299-306.",
     .inReport = 28,
     .inComparison = 9},
    {.key = "zacharias1996",
     .cited = "Zacharias et al. (1996)",
     .entry = "Zacharias, S., C. D. Geibaidi, and C. W. Stodisa. 1996. Robust quantitative techniques for "
              "validating pesticide transport models. Transactions of the ASAE (American Society of "
              "Agricultural Engineers). 39:47-54.",
     .inReport = 29,
     .inComparison = 10},
    {.key = "burnham2002",
     .cited = "Burnham and Anderson (2002)",
     .entry = "Burnham, K. P. and D. R. Anderson. 2002. Model Selection and Multimodel Inference: A "
              "Practical Information-Theoretic Approach (2nd ed.). Springer-Verlag, New York.",
     .inComparison = 2},
    // Those that explanations alone cite.
    {.key = "burnham2011",
     .cited = "Burnham et al. (2011)",
     .entry = "Burnham, K. P., D. R. Anderson, and K. P. Huyvaert. 2011. AIC model selection and multimodel "
              "inference in behavioral ecology: some background, observations, and comparisons. Behavioral "
              "Ecology and Sociobiology. 65:23-35."},
    {.key = "dagostino1986",
     .cited = "D'Agostino and Stephens (1986)",
     .entry = "D'Agostino, R. B. and M. A. Stephens (eds.). 1986. Goodness-of-Fit Techniques. Marcel Dekker, "
              "New York."},
    {.key = "feigelson1992",
     .cited = "Feigelson and Babu (1992)",
     .entry = "Feigelson, E. D. and G. J. Babu. 1992. Linear regression in astronomy. II. The Astrophysical "
              "Journal. 397:55-67."},
    {.key = "joanes1998",
     .cited = "Joanes and Gill (1998)",
     .entry = "Joanes, D. N. and C. A. Gill. 1998. Comparing measures of sample skewness and kurtosis. The "
              "Statistician. 47:183-189."},
    {.key = "kvalseth1985",
     .cited = "Kvålseth (1985)",
     .entry = "Kvålseth, T. O. 1985. Cautionary note about R². The American Statistician. 39:279-285."},
    {.key = "lin2000",
     .cited = "Lin (2000)",
     .entry =
         "Lin, L. I.-K. 2000. A note on the concordance correlation coefficient. Biometrics. 56:324-325."},
    {.key = "royston1995",
     .cited = "Royston (1995)",
     .entry = "Royston, P. 1995. Remark AS R94: A remark on algorithm AS 181: The W-test for normality. "
              "Applied Statistics. 44:547-551."},
    {.key = "york2004",
     .cited = "York et al. (2004)",
     .entry = "York, D., N. M. Evensen, M. López Martínez, and J. De Basabe Delgado. 2004. Unified equations "
              "for the slope, intercept, and standard errors of the best straight line. American Journal of "
              "Physics. 72:367-375."},
};

} // namespace

std::span<const Paper> PaperTable() {
    return papers;
}

const Paper* FindPaper(std::string_view key) {
    const auto found = std::ranges::find(papers, key, &Paper::key);
    return found == std::end(papers) ? nullptr : found;
}

} // namespace corvane
