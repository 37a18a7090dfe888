# Derives the numbers of samples_*.txt from the definitions and R's own routines: every line that has a number.

source(file.path(dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE))), "derive.R"))

# The bias-adjusted forms in z-scores of the sample SD.
skewness <- function(s) {
  n <- length(s)
  if (constant(s)) 0 else n / ((n - 1) * (n - 2)) * sum(scale(s)^3)
}
kurtosis <- function(s) {
  n <- length(s)
  if (constant(s) || n < 4) return(0)
  n * (n + 1) / ((n - 1) * (n - 2) * (n - 3)) * sum(scale(s)^4) - 3 * (n - 1)^2 / ((n - 2) * (n - 3))
}

Sn <- function(s) {  # from all pairs: Croux and Rousseeuw (1992)
  n <- length(s)
  himed <- apply(abs(outer(s, s, "-")), 1, function(d) sort(d)[n %/% 2 + 1])
  factor <- if (n <= 9) c(NA, 0.743, 1.851, 0.954, 1.351, 0.993, 1.198, 1.005, 1.131)[n]
            else if (n %% 2 == 1) n / (n - 0.9) else 1
  1.1926 * factor * sort(himed)[(n + 1) %/% 2]
}

index_lines <- function(x, y) {
  n <- length(x)
  ratio <- ifelse(y == 0, 0, x / y)
  m <- mean(ratio)
  error <- sd(ratio) / sqrt(n)
  P <- function(null) if (constant(ratio)) 0 else 2 * pt(-abs(m - null) / error, n - 2)
  interval <- function(label, alpha) {
    paste0("CI (P=", label, ")  : [", f(m - qt(1 - alpha, n) * error), ",", f(m + qt(1 - alpha, n) * error), "]")
  }
  c(if (sum(y) != 0) paste0("Ave(X)/Ave(Y): ", f(sum(x) / sum(y))),
    paste0("Ave(X/Y)     : ", f(m)), paste0("SD(X/Y)      : ", f(sd(ratio))),
    interval("0.05", 0.05), interval("0.10", 0.10),
    paste0("P(Ratio = 0) : ", f(P(0))), paste0("P(Ratio = 1) : ", f(P(1))))
}

derived <- function(x, y) {
  w <- function(name, s)
    paste0("SW's W-value for normality for ", name, " (P-value < W) : ", f(shapiro(s)$W), " (", p(shapiro(s)$P, 10), ")")
  both <- function(label, routine) paste0("X ", label, f(routine(x)), "     Y ", label, f(routine(y)))
  c(w("X", x), w("Y", y), normality(x), normality(y),
    both("Abs Mean : ", function(s) mean(abs(s))), both("Min      : ", min), both("Max      : ", max),
    both("Mean     : ", mean), both("Median   : ", median), both("Variance : ", var), both("Std. Dev.: ", sd),
    both("Skewness : ", skewness), both("Kurtosis : ", kurtosis),
    paste0("X - Y Mean : ", f(mean(x - y)), "     X - Y Var  : ", f(var(x - y))),
    paste0("Covariance : ", f(cov(x, y))),
    both("Sn       : ", Sn), both("Qn       : ", Qn), index_lines(x, y))
}

data <- list(
  mtcars = list(predicted, observed),
  mtcars_swapped = list(observed, predicted),
  zeros = list(c(1.2, 0, 3.1, 4.4, 5, 6.3, 7.7), c(0, 1.5, 3, 0, 5.5, 6, 8)),
  negative = list(c(-3.2, -1.5, -0.4, 0.9, 2.8, 3.1), c(-3, -2, -0.5, 0.5, 1.5, 3.5)),
  constant_y = list(c(1, 2.5, 3, 4, 6.5, 7), rep(3.5, 6)),
  constant_ratio = list(c(2, 4, 7), c(1, 2, 3.5)))
for (name in names(data)) {
  file <- paste0("samples_", name, ".txt")
  compare(file, derived(data[[name]][[1]], data[[name]][[2]]), grep("[0-9]\\.[0-9]", golden(file), value = TRUE))
}
finish()
