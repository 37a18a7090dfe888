# Derives the numbers of samples_*.txt a second time, from the definitions and R's own routines, and compares every line
# that has a number, in its order.
#   Rscript tests/golden/samples.R        (R 4.2; not part of the test run)
# The scales Sn and Qn come from all pairs, W2, U2 and A2 from the integrals that define them.

here <- dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE)))

# Ties of the last place, as in 20.090625, round away from zero.
f <- function(value, width = 10, decimals = 5) {
  formatC(value * (1 + 1e-15), width = width, digits = decimals, format = "f")
}
p <- function(value, width = 10, decimals = 5) {  # a probability never prints as zero
  last <- 10^-decimals
  f(if (value < last) value + last else value, width, decimals)
}
constant <- function(s) all(s == s[1])

shapiro <- function(s) {
  if (constant(s)) return(list(W = 0, P = 1))  # 0 / 0: no evidence
  test <- shapiro.test(s)
  list(W = unname(test$statistic), P = test$p.value)
}

# D'Agostino and Stephens (1986), Table 4.9: p = 1 - exp(q) below the second limit, exp(q) above, q a parabola. No
# sample here lies beyond the turning point of the last one.
tail_of <- function(z, limits, q) {
  k <- findInterval(z, limits) + 1
  e <- exp(sum(q[[k]] * z^(0:2)))
  if (k <= 2) 1 - e else e
}

normality <- function(s) {
  n <- length(s)
  w <- shapiro(s)
  if (constant(s)) {
    D <- V <- W2 <- U2 <- A2 <- 0
    PW2 <- PU2 <- PA2 <- 1
  } else {
    z <- sort((s - mean(s)) / sd(s))
    phi <- pnorm(z)
    above <- sapply(z, function(v) mean(z <= v)) - phi
    below <- phi - sapply(z, function(v) mean(z < v))
    D <- max(above, below)
    V <- max(above) + max(below)
    # n times the mean square, the variance and the weighted mean square of F_n - u, u uniform: integrals over the
    # intervals between the steps, on each of which F_n is constant.
    level <- 0:n / n
    from <- c(0, phi)
    to <- c(phi, 1)
    W2 <- n * sum((to - level)^3 - (from - level)^3) / 3
    U2 <- W2 - n * (sum((to - level)^2 - (from - level)^2) / 2)^2
    weighted <- function(u, h) {  # antiderivative of (h - u)^2 / (u (1 - u))
      (if (h > 0) h^2 * log(u) else 0) - (if (h < 1) (1 - h)^2 * log(1 - u) else 0) - u
    }
    A2 <- n * sum(mapply(weighted, to, level) - mapply(weighted, from, level))
    PW2 <- tail_of(W2 * (1 + 0.5 / n), c(0.0275, 0.051, 0.092),
                   list(c(-13.953, 775.5, -12542.61), c(-5.903, 179.546, -1515.29), c(0.886, -31.62, 10.897),
                        c(1.111, -34.242, 12.832)))
    PU2 <- tail_of(U2 * (1 + 0.5 / n), c(0.0262, 0.048, 0.094),
                   list(c(-13.642, 766.31, -12432.74), c(-6.3328, 214.57, -2022.28), c(0.8510, -32.006, -3.45),
                        c(1.325, -38.918, 16.45)))
    PA2 <- tail_of(A2 * (1 + 0.75 / n + 2.25 / n^2), c(0.2, 0.34, 0.6),
                   list(c(-13.436, 101.14, -223.73), c(-8.318, 42.796, -59.938), c(0.9177, -4.279, -1.38),
                        c(1.2937, -5.709, 0.0186)))
  }
  with_p <- function(label, value, P) paste0(label, f(value), " (P = ", p(P, 6, 4), ")")
  c(paste0("Kolmogorov-Smirnov's D statistic : ", f(D)),
    paste0("Kuiper's V statistic             : ", f(V)),
    with_p("Cramér-von Mises's W2 statistic  : ", W2, PW2),
    with_p("Watson's U2 statistic            : ", U2, PU2),
    with_p("Anderson-Darling's A2 statistic  : ", A2, PA2),
    with_p("Shapiro-Wilk's W statistic       : ", w$W, w$P))
}

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

distances <- function(s) abs(outer(s, s, "-"))
Sn <- function(s) {  # Croux and Rousseeuw (1992)
  n <- length(s)
  himed <- apply(distances(s), 1, function(d) sort(d)[n %/% 2 + 1])
  factor <- if (n <= 9) c(NA, 0.743, 1.851, 0.954, 1.351, 0.993, 1.198, 1.005, 1.131)[n]
            else if (n %% 2 == 1) n / (n - 0.9) else 1
  1.1926 * factor * sort(himed)[(n + 1) %/% 2]
}
Qn <- function(s) {  # Rousseeuw and Croux (1993), the later factors for finite samples
  n <- length(s)
  d <- distances(s)
  factor <- if (n <= 12) c(NA, .399356, .99365, .51321, .84401, .61220, .85877, .66993, .87344, .72014, .88906,
                           .75743)[n]
            else if (n %% 2 == 1) 1 / (1 + (1.60188 + (-2.1284 - 5.172 / n) / n) / n)
            else 1 / (1 + (3.67561 + (1.9654 + (6.987 - 77 / n) / n) / n) / n)
  2.21914 * factor * sort(d[lower.tri(d)])[choose(n %/% 2 + 1, 2)]
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
  shapiro_line <- function(name, s) {
    paste0("SW's W-value for normality for ", name, " (P-value < W) : ", f(shapiro(s)$W), " (", p(shapiro(s)$P), ")")
  }
  both <- function(label, routine) {
    paste0("X ", label, f(routine(x)), "     Y ", label, f(routine(y)))
  }
  c(shapiro_line("X", x), shapiro_line("Y", y), normality(x), normality(y),
    both("Abs Mean : ", function(s) mean(abs(s))), both("Min      : ", min), both("Max      : ", max),
    both("Mean     : ", mean), both("Median   : ", median), both("Variance : ", var),
    both("Std. Dev.: ", sd),
    both("Skewness : ", skewness), both("Kurtosis : ", kurtosis),
    paste0("X - Y Mean : ", f(mean(x - y)), "     X - Y Var  : ", f(var(x - y))),
    paste0("Covariance : ", f(cov(x, y))),
    both("Sn       : ", Sn), both("Qn       : ", Qn), index_lines(x, y))
}

mpg <- mtcars$mpg
fitted_mpg <- unname(round(fitted(lm(mpg ~ wt + hp, mtcars)), 2))
data <- list(
  mtcars = list(fitted_mpg, mpg),
  mtcars_swapped = list(mpg, fitted_mpg),
  zeros = list(c(1.2, 0, 3.1, 4.4, 5, 6.3, 7.7), c(0, 1.5, 3, 0, 5.5, 6, 8)),
  negative = list(c(-3.2, -1.5, -0.4, 0.9, 2.8, 3.1), c(-3, -2, -0.5, 0.5, 1.5, 3.5)),
  constant_y = list(c(1, 2.5, 3, 4, 6.5, 7), rep(3.5, 6)),
  constant_ratio = list(c(2, 4, 7), c(1, 2, 3.5)))

status <- 0
for (name in names(data)) {
  golden <- sub("\r$", "", readLines(file.path(here, paste0("samples_", name, ".txt")), encoding = "UTF-8"))
  golden <- golden[grepl("[0-9]\\.[0-9]", golden)]
  lines <- derived(data[[name]][[1]], data[[name]][[2]])
  same <- length(lines) == length(golden) && all(lines == golden)
  agree <- if (length(lines) == length(golden)) sum(lines == golden) else sum(lines %in% golden)
  cat(sprintf("%s: %d derived lines, %d in the golden text, %d agree\n", name, length(lines), length(golden), agree))
  if (!same) {
    cat(paste("derived:", setdiff(lines, golden)), paste("golden: ", setdiff(golden, lines)), sep = "\n")
    status <- 1
  }
}
quit(status = status)
