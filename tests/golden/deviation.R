# Derives deviation_mtcars.txt and deviation_mtcars_window.txt a second time, with R's own data and routines, and
# compares them line by line.
#   Rscript tests/golden/deviation.R     (R 4.2; not part of the test run)
# The statistics of the empirical distribution function come from their integrals over F (D from ks.test), their P
# from the table of Stephens (D'Agostino and Stephens, 1986, Table 4.9, mean and variance unknown).
#
# Freese's limits by hand, from quantiles as tables print them (Pearson and Hartley, 1966, Tables 7 and 8) and
# n = 32, S = sum d^2 = 194.9930, m = -0.000625:
#   sqrt(chi(1 - alpha, 1) S / chi), alpha = 0.05, chi(0.95, 1) = 3.8415, the product 3.8415 * 194.9930 = 749.066
#   no bias, 32 df:            749.066 / 46.194 = 16.2157, root 4.0269;  749.066 / 20.072 = 37.3190, root 6.1089
#   constant bias, 31 df:      S - 32 m^2 = 194.9930 - 0.0000125, the same product
#                              749.066 / 44.985 = 16.6515, root 4.0806;  749.066 / 19.281 = 38.8500, root 6.2330
#   proportional bias, 30 df:  SSE = 194.9930; here alpha / 2 on each side
#                              749.066 / 46.979 = 15.9447, root 3.9931;  749.066 / 16.791 = 44.6112, root 6.6792

here <- dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE)))
golden <- function(name) sub("\r$", "", readLines(file.path(here, name), encoding = "UTF-8", warn = FALSE))

x <- unname(round(fitted(lm(mpg ~ wt + hp, mtcars)), 2))
y <- mtcars$mpg
d <- y - x
n <- length(d)
alpha <- 0.05
f <- function(value, width = 10, decimals = 5) sprintf(paste0("%", width, ".", decimals, "f"), value)
p <- function(value, decimals = 5) {  # a probability never prints as zero
  unit <- 10^-decimals
  f(if (value < unit) value + unit else value, decimals + 2, decimals)
}

dashes <- strrep("-", 36)
share <- sign(d) * d^2 / sum(d^2)
weighed <- c(
  "WEIGHED DEVIANCE ANALYSIS", strrep("=", 25), "", "   X          Y         WtDev     ", dashes,
  paste0(f(x, 10, 3), f(y, 10, 3), f(share, 15, 10)), dashes)

fit <- lm(d ~ x)
s <- summary(fit)$coefficients
mean.test <- t.test(d, conf.level = 1 - alpha)
prediction <- predict(lm(d ~ 1), data.frame(row.names = 1), interval = "prediction", level = 1 - alpha)
freese <- function(sum.of.squares, df, tail) {
  limit <- function(P) f(sqrt(qchisq(1 - alpha, 1) * sum.of.squares / qchisq(P, df)))
  paste(limit(1 - tail), "to", limit(tail))
}

# Empirical distribution function F_n against F, the normal one with the sample's mean and SD, over z = F(x).
z <- pnorm(sort(d), mean(d), sd(d))
edges <- c(0, z, 1)
over <- function(g) sum(sapply(0:n, function(k) {
  if (edges[k + 2] <= edges[k + 1]) return(0)
  integrate(function(u) g(k / n - u, u), edges[k + 1], edges[k + 2], rel.tol = 1e-12, abs.tol = 1e-15)$value
}))
D <- unname(ks.test(d, "pnorm", mean(d), sd(d), exact = FALSE)$statistic)
V <- unname(ks.test(d, "pnorm", mean(d), sd(d), exact = FALSE, alternative = "less")$statistic +
              ks.test(d, "pnorm", mean(d), sd(d), exact = FALSE, alternative = "greater")$statistic)
W2 <- n * over(function(difference, u) difference^2)
centre <- over(function(difference, u) difference)
U2 <- n * over(function(difference, u) (difference - centre)^2)
A2 <- n * over(function(difference, u) difference^2 / (u * (1 - u)))
stephens <- function(value, limits, c0, c1, c2) {
  range <- findInterval(value, limits) + 1
  q <- c0[range] + c1[range] * value + c2[range] * value^2
  if (range <= 2) 1 - exp(q) else exp(q)
}
pW2 <- stephens(W2 * (1 + 0.5 / n), c(0.0275, 0.051, 0.092), c(-13.953, -5.903, 0.886, 1.111),
                c(775.5, 179.546, -31.62, -34.242), c(-12542.61, -1515.29, 10.897, 12.832))
pU2 <- stephens(U2 * (1 + 0.5 / n), c(0.0262, 0.048, 0.094), c(-13.642, -6.3328, 0.8510, 1.325),
                c(766.31, 214.57, -32.006, -38.918), c(-12432.74, -2022.28, -3.45, 16.45))
pA2 <- stephens(A2 * (1 + 0.75 / n + 2.25 / n^2), c(0.2, 0.34, 0.6), c(-13.436, -8.318, 0.9177, 1.2937),
                c(101.14, 42.796, -4.279, -5.709), c(-223.73, -59.938, -1.38, 0.0186))
W <- shapiro.test(d)

deviation <- c(
  "", "", "DEVIATION ANALYSIS", strrep("=", 18),
  "Regression of: Deviation = a + b×'Model-Predicted'",
  paste0("Estimate a ± SD                  : ", f(s[1, 1]), " ± ", f(s[1, 2])),
  paste0("Estimate b ± SD                  : ", f(s[2, 1]), " ± ", f(s[2, 2])),
  paste0("H0: a = 0; T-value (P-value)     : ", f(s[1, 3]), " (", p(s[1, 4]), ")"),
  paste0("H0: b = 0; T-value (P-value)     : ", f(s[2, 3]), " (", p(s[2, 4]), ")"),
  paste0("r²                               : ", f(cor(x, d)^2)),
  paste0("MSE                              : ", f(summary(fit)$sigma^2)),
  paste0("Mean deviation                   : ", f(mean(d)), " (P = ", p(mean.test$p.value), ")"),
  paste0("Confidence interval (95%)        : ", f(mean.test$conf.int[1]), " to ", f(mean.test$conf.int[2])),
  paste0("Prediction interval (95%)        : ", f(prediction[2]), " to ", f(prediction[3])),
  paste0("Variance deviation               : ", f(var(d))),
  paste0("S deviation                      : ", f(sd(d))),
  "",
  "Confidence Interval of the Distribution of the |Deviations| (Freese, 1960; Reynolds, 1984)",
  strrep("-", 90),
  "Assuming 95% of probability",
  paste0("Root of sum of deviation squared : ", f(sqrt(sum(d^2)))),
  paste0("Assuming no mean bias            : ", freese(sum(d^2), n, alpha)),
  paste0("Assuming constant mean bias      : ", freese(sum(d^2) - n * mean(d)^2, n - 1, alpha)),
  paste0("Assuming proportional bias       : ", freese(sum(residuals(fit)^2), n - 2, alpha / 2)),
  "Goodness-of-Fit Analyses (Davis and Stephens, 1989)",
  strrep("-", 51),
  paste0("Kolmogorov-Smirnov's D statistic : ", f(D)),
  paste0("Kuiper's V statistic             : ", f(V)),
  paste0("Cramér-von Mises's W2 statistic  : ", f(W2), " (P = ", p(pW2, 4), ")"),
  paste0("Watson's U2 statistic            : ", f(U2), " (P = ", p(pU2, 4), ")"),
  paste0("Anderson-Darling's A2 statistic  : ", f(A2), " (P = ", p(pA2, 4), ")"),
  paste0("Shapiro-Wilk's W statistic       : ", f(W$statistic), " (P = ", p(W$p.value, 4), ")"),
  "-----",
  "!! These calculations were not adjusted for Normal distribution !!")

ascending <- order(x)
at <- data.frame(x = x[ascending])
ci <- predict(fit, at, interval = "confidence", level = 1 - alpha)
pi <- predict(fit, at, interval = "prediction", level = 1 - alpha)
rule <- strrep("-", 84)
window <- c(
  paste0("KOV v. 4.0.0", strrep(" ", 35), "[mtcars.KOV]", strrep(" ", 35), "09-Mar-2026 07:05:04"),
  strrep(".", 114), "",
  "Deviation Analysis - Confidence and Prediction Interval", strrep("=", 55),
  paste(formatC(c("X", "Deviation", "Fitted", "CI Lower", "CI Upper", "PI Lower", "PI Upper"), width = 12),
        collapse = ""),
  rule,
  apply(cbind(at$x, d[ascending], ci, pi[, 2:3]), 1, function(row) paste(f(row, 12), collapse = "")),
  rule)

failed <- FALSE
compare <- function(name, derived) {
  printed <- golden(name)
  agree <- length(printed) == length(derived) && all(printed == derived)
  cat(sprintf("%s: %d lines, %d derived, %d agree\n", name, length(printed), length(derived),
              sum(head(printed, length(derived)) == head(derived, length(printed)))))
  if (!agree) cat(setdiff(derived, printed), sep = "\n")
  failed <<- failed || !agree
}
compare("deviation_mtcars.txt", c(weighed, deviation))
compare("deviation_mtcars_window.txt", window)
quit(status = if (failed) 1 else 0)
