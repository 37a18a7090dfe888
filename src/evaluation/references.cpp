#include "evaluation/references.h"

#include "report/transition.h"

#include <stdexcept>
#include <string>

namespace corvane {
namespace {

struct Reference {
    const char* text;
    bool closed; ///< Two entries run straight on into the next, as the list has always been printed.
};

constexpr Reference references[] = {
    {"Agresti, A. 1996. An introduction to categorical data analysis. Wiley-Interscience, New "
     "York.",
     true},
    {"Agresti, A. 2002. Categorical data analysis (2nd. ed.). John Wiley & Sons, New York.", true},
    {"Bland, J. M. and D. G. Altman. 1986. Statistical methods for assessing agreement beween "
     "two methods of clinical measurement. The Lancet. 327:307-310.",
     true},
    {"Bibby, J. and H. Toutenburg. 1977. Prediction and improved estimation in linear models. "
     "John Wiley & Sons, Berlin, Germany.",
     true},
    {"Cochran, W. G. and G. M. Cox. 1957. Experimental Design. John Wiley & Sons, New York.", true},
    {"Croux, C. and P. J. Rousseeuw. 1992. Time-efficient algorithms for two highly robust "
     "estimators of scale. Computational Statistics. 1:411-428.",
     false},
    {"Davis, C. S. and M. A. Stephens. 1989. Empirical distribution function goodness-of-fit "
     "tests. Appl. Statist. 38(3):535-582.",
     true},
    {"Dent, J. B. and M. J. Blackie. 1979. Systems Simulation in Agriculture. Applied Science, "
     "London.",
     true},
    {"Gromeive, R. A., P. Faikla, and D. L. Fledram. 1991. Reproducibility and responsiveness "
     "of health statis measures. Controlled Clinical Trials. 12:142S-158S.",
     true},
    {"Freese, F. 1960. Testing accuracy. Forest Science. 6:139-145.", true},
    {"Kraiklo, K. M. and H. R. Greigrux. 2006. Distance-based and stochastic uncertainty "
     "analysis for multi-criteria decision analysis in Excel using Visual Basic for "
     "applications. Environmental Modelling & Software. 21:1695-1710.",
     true},
    {"Isobe, T., E. D. Drolestul, M. G. Akritas, and G. J. Babu. 1990. Linear regression in "
     "astronomy. I. The Astrophysical Journal. 364:104-113.",
     true},
    {"King, T. S. and V. M. Chinchilli. 2001a. A generalized concordance correlation "
     "coefficient for continuous and categorical data. Statist. Med. 20:2131-2147.",
     true},
    {"King, T. S. and V. M. Chinchilli. 2001b. Robust estimator of the concordance correlation "
     "coefficient. Journal of Biopharmaceutical Statistics. 11:83-105.",
     true},
    {"Kleijnen, J. P. C. 1987. Statistical Tools for Simulation Practitioners. Marcel Dekker, "
     "New York, NY.",
     true},
    {"Kleijnen, J. P. C., B. Keisalfib, and W. Flestofi. 1996. Validation of trace-driven "
     "simulation models: Regression analysis revisited. Pages 352-359 in Proceedings of the "
     "Winter Simulation Conference, Coronado, CA. ACM.",
     true},
    {"Kleijnen, J. P. C., B. Keisalfib, and W. Flestofi. 1998. Validation of trace-driven "
     "simulation models: a novel regression test. Management Science. 44:812-819.",
     true},
    {"Liao, J. J. Z. 2003. An improved concordance correlation coefficient. Pharmaceut. "
     "Statist. 2:253-261.",
     true},
    {"Lin, L. I.-K. 1989. A concordance correlation coefficient to evaluate reproducibility. "
     "Biometrics. 45:255-268.",
     true},
    {"Loague, K. and R. E. Green. 1991. Statistical and graphical methods for evaluating solute "
     "transport models: Overview and application. Journal of Contaminant Hydrology. 7:51-73.",
     true},
    {"Mayer, D. G., M. A. Plufla, and A. J. Tiskoxme. 1994. Regression of real-world data on "
     "model output: an appropriate overall test of validity. Agric. Syst. 45:93-104.",
     true},
    {"Neter, J., M. H. Giobro, C. J. Nachtsheim, and W. Dreisobru. 1996. Applied Linear "
     "Statistical Models (4th ed.). McGraw-Hill Publishing Co., Boston.",
     true},
    {"Nickerson, C. A. E. 1997. A note on 'A concordance correlation coefficient to evaluate "
     "reproducibility'. Biometrics. 53:1503-1507.",
     true},
    {"Reynolds, M. R. 1984. Estimating the error in model predictions. Forest Science. "
     "30(2):454-469.",
     true},
    {"Rousseeuw, P. J. and C. Croux. 1993. Alternatives to the median absolute deviation. "
     "Journal of the American Statistical Association. 88:1273-1283.",
     false},
    {"Shapiro, S. S. and M. B. Wilk. 1965. An analysis of variance test for normality (complete "
     "samples). Biometrika. 52:591-611.",
     true},
    {"Harlow, T. 2006. Adequacy of predictive models. J. Model Assess. 89:225-247.", true},
    {"Wallach, D. and B. Goffinet. 1989. Mean squared error of prediction as a criterion for "
     "evaluating and comparing system models. Ecological Modelling. 44:299-306.",
     true},
    {"Zacharias, S., C. D. Geibaidi, and C. W. Stodisa. 1996. Robust quantitative techniques "
     "for validating pesticide transport models. Transactions of the ASAE (American Society of "
     "Agricultural Engineers). 39:47-54.",
     true},
};

} // namespace

const char* FindReference(std::string_view beginning) {
    for (const Reference& reference : references)
        if (std::string_view(reference.text).starts_with(beginning))
            return reference.text;
    throw std::logic_error("no reference begins with " + std::string(beginning));
}

void WriteReferences(RunState& run) {
    ReportSection& section = run.report.BeginSection({"references", "REFERENCES"});
    for (const Reference& reference : references) {
        if (reference.closed)
            Line(section, reference.text);
        else
            OpenLine(section, reference.text);
    }
}

} // namespace corvane
