# Derives deviation_mtcars.txt and deviation_mtcars_window.txt, every line.
#
# Freese's limits by hand, from quantiles as tables print them (Pearson and Hartley, 1966, Tables 7 and 8) and
# n = 32, S = sum d^2 = 194.9930, m = -0.000625:
#   sqrt(chi(1 - alpha, 1) S / chi), alpha = 0.05, chi(0.95, 1) = 3.8415, the product 3.8415 * 194.9930 = 749.066
#   no bias, 32 df:            749.066 / 46.194 = 16.2157, root 4.0269;  749.066 / 20.072 = 37.3190, root 6.1089
#   constant bias, 31 df:      S - 32 m^2 = 194.9930 - 0.0000125, the same product
#                              749.066 / 44.985 = 16.6515, root 4.0806;  749.066 / 19.281 = 38.8500, root 6.2330
#   proportional bias, 30 df:  SSE = 194.9930; here alpha / 2 on each side
#                              749.066 / 46.979 = 15.9447, root 3.9931;  749.066 / 16.791 = 44.6112, root 6.6792

source(file.path(dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE))), "derive.R"))

x <- predicted; y <- observed
d <- y - x
n <- length(d)
alpha <- 0.05

dashes <- strrep("-", 36)
weighed <- c(
  titled("WEIGHED DEVIANCE ANALYSIS"), "", "   X          Y         WtDev     ", dashes,
  paste0(f(x, 10, 3), f(y, 10, 3), f(sign(d) * d^2 / sum(d^2), 15, 10)), dashes)

fit <- lm(d ~ x)
mean.test <- t.test(d, conf.level = 1 - alpha)
prediction <- predict(lm(d ~ 1), data.frame(row.names = 1), interval = "prediction", level = 1 - alpha)
freese <- function(sum.of.squares, df, tail) {
  limit <- function(P) f(sqrt(qchisq(1 - alpha, 1) * sum.of.squares / qchisq(P, df)))
  paste(limit(1 - tail), "to", limit(tail))
}
deviation <- c(
  "", "", titled("DEVIATION ANALYSIS"),
  "Regression of: Deviation = a + b×'Model-Predicted'",
  estimates(c("Estimate a ± SD                  : ", "Estimate b ± SD                  : "), fit),
  t_tests(c("H0: a = 0; T-value (P-value)     : ", "H0: b = 0; T-value (P-value)     : "), fit),
  paste0("r²                               : ", f(cor(x, d)^2)),
  paste0("MSE                              : ", f(summary(fit)$sigma^2)),
  paste0("Mean deviation                   : ", f(mean(d)), " (P = ", p(mean.test$p.value), ")"),
  paste0("Confidence interval (95%)        : ", f(mean.test$conf.int[1]), " to ", f(mean.test$conf.int[2])),
  paste0("Prediction interval (95%)        : ", f(prediction[2]), " to ", f(prediction[3])),
  paste0("Variance deviation               : ", f(var(d))),
  paste0("S deviation                      : ", f(sd(d))),
  "",
  titled("Confidence Interval of the Distribution of the |Deviations| (Freese, 1960; Reynolds, 1984)", "-"),
  "Assuming 95% of probability",
  paste0("Root of sum of deviation squared : ", f(sqrt(sum(d^2)))),
  paste0("Assuming no mean bias            : ", freese(sum(d^2), n, alpha)),
  paste0("Assuming constant mean bias      : ", freese(sum(d^2) - n * mean(d)^2, n - 1, alpha)),
  paste0("Assuming proportional bias       : ", freese(sum(residuals(fit)^2), n - 2, alpha / 2)),
  titled("Goodness-of-Fit Analyses (Davis and Stephens, 1989)", "-"),
  normality(d),
  "-----",
  "!! These calculations were not adjusted for Normal distribution !!")
compare("deviation_mtcars.txt", c(weighed, deviation))

at <- data.frame(x = sort(x))
limits <- function(kind) predict(fit, at, interval = kind, level = 1 - alpha)
rows <- cbind(at$x, d[order(x)], limits("confidence"), limits("prediction")[, 2:3])
rule <- strrep("-", 84)
compare("deviation_mtcars_window.txt", c(
  paste0("KOV v. 4.0.0", strrep(" ", 35), "[mtcars.KOV]", strrep(" ", 35), "09-Mar-2026 07:05:04"),
  strrep(".", 114), "", titled("Deviation Analysis - Confidence and Prediction Interval"),
  paste(formatC(c("X", "Deviation", "Fitted", "CI Lower", "CI Upper", "PI Lower", "PI Upper"), width = 12),
        collapse = ""),
  rule, apply(rows, 1, function(row) paste(f(row, 12), collapse = "")), rule))
finish()
