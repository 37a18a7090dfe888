# Shared by the scripts that derive the numbers of the golden texts a second time, with R's own data and routines:
#   Rscript tests/golden/NAME.R        (R 4.2; not part of the test run)

here <- dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE)))
golden <- function(name) sub("\r$", "", readLines(file.path(here, name), encoding = "UTF-8", warn = FALSE))

failed <- FALSE
# Compares derived lines with lines of a golden text, one by one.
compare <- function(name, derived, printed = golden(name)) {
  same <- if (length(derived) == length(printed)) derived == printed else rep(FALSE, length(derived))
  cat(sprintf("%s: %d of %d lines derived\n", name, sum(same), length(printed)))
  if (!all(same))
    cat(paste("derived:", setdiff(derived, printed)), paste("printed:", setdiff(printed, derived)), sep = "\n")
  failed <<- failed || !all(same)
}
finish <- function() quit(status = failed)

# A field of a report. Halves of the last place round away from zero, and what is too wide even without the zero before
# its point is not shown.
f <- function(value, width = 10, decimals = 5) {
  text <- formatC(value * (1 + 1e-15), digits = decimals, format = "f")
  sprintf("%*s", as.integer(width), ifelse(nchar(sub("^(-?)0\\.", "\\1.", text)) > width, "n/a", text))
}
p <- function(value, width = 7, decimals = 5) {  # a probability never prints as zero
  f(ifelse(value < 10^-decimals, value + 10^-decimals, value), width, decimals)
}
count <- function(value, width = 5) if (value == 0) strrep(" ", width) else sprintf("%*d", width, value)
titled <- function(title, rule = "=") c(title, strrep(rule, nchar(title)))
constant <- function(s) all(s == s[1])

predicted <- unname(round(fitted(lm(mpg ~ wt + hp, mtcars)), 2))
observed <- mtcars$mpg

# Pearson's data with York's weights (1966), and the line by direct minimisation of the weighted sum of squares.
pearson <- data.frame(
  x = c(0, 0.9, 1.8, 2.6, 3.3, 4.4, 5.2, 6.1, 6.5, 7.4), y = c(5.9, 5.4, 4.4, 4.6, 3.5, 3.7, 2.8, 2.8, 2.4, 1.5),
  vx = 1 / c(1000, 1000, 500, 800, 200, 80, 60, 20, 1.8, 1), vy = 1 / c(1, 1.8, 4, 8, 20, 20, 70, 70, 100, 500))
york <- with(pearson, {
  intercept <- function(b) weighted.mean(y - b * x, 1 / (vy + b^2 * vx))
  b <- optimize(function(b) sum((y - intercept(b) - b * x)^2 / (vy + b^2 * vx)), c(-1, 0), tol = 1e-12)$minimum
  c(intercept(b), b)
})

shapiro <- function(s) {
  if (constant(s)) return(list(W = 0, P = 1))  # 0 / 0: no evidence
  test <- shapiro.test(s)
  list(W = unname(test$statistic), P = test$p.value)
}

# D'Agostino and Stephens (1986), Table 4.9, mean and variance unknown: p = 1 - exp(q) below the second limit, exp(q)
# above, q a parabola. No sample here lies beyond the turning point of the last one.
stephens <- list(
  W2 = list(c(0.0275, 0.051, 0.092), c(-13.953, 775.5, -12542.61), c(-5.903, 179.546, -1515.29),
            c(0.886, -31.62, 10.897), c(1.111, -34.242, 12.832)),
  U2 = list(c(0.0262, 0.048, 0.094), c(-13.642, 766.31, -12432.74), c(-6.3328, 214.57, -2022.28),
            c(0.8510, -32.006, -3.45), c(1.325, -38.918, 16.45)),
  A2 = list(c(0.2, 0.34, 0.6), c(-13.436, 101.14, -223.73), c(-8.318, 42.796, -59.938),
            c(0.9177, -4.279, -1.38), c(1.2937, -5.709, 0.0186)))

# The six lines of the empirical distribution function F_n against the normal one. W2, U2 and A2 come from the integrals
# that define them, n times the mean square, the variance and the weighted mean square of F_n - u, u uniform, over the
# intervals between the steps, on each of which F_n is constant.
normality <- function(s) {
  n <- length(s); s <- unname(s)
  D <- V <- W2 <- U2 <- A2 <- 0
  tail_of <- function(name, z) {
    k <- findInterval(z, stephens[[name]][[1]]) + 1
    e <- exp(sum(stephens[[name]][[k + 1]] * z^(0:2)))
    if (constant(s)) 1 else if (k <= 2) 1 - e else e
  }
  if (!constant(s)) {
    z <- sort((s - mean(s)) / sd(s))
    phi <- pnorm(z)
    above <- max(sapply(z, function(v) mean(z <= v)) - phi)
    below <- max(phi - sapply(z, function(v) mean(z < v)))
    D <- max(above, below); V <- above + below
    level <- 0:n / n; from <- c(0, phi); to <- c(phi, 1)
    W2 <- n * sum((to - level)^3 - (from - level)^3) / 3
    U2 <- W2 - n * (sum((to - level)^2 - (from - level)^2) / 2)^2
    weighted <- function(u, h) {  # antiderivative of (h - u)^2 / (u (1 - u))
      (if (h > 0) h^2 * log(u) else 0) - (if (h < 1) (1 - h)^2 * log(1 - u) else 0) - u
    }
    A2 <- n * sum(mapply(weighted, to, level) - mapply(weighted, from, level))
  }
  with_p <- function(label, value, P) paste0(label, f(value), " (P = ", p(P, 6, 4), ")")
  c(paste0("Kolmogorov-Smirnov's D statistic : ", f(D)),
    paste0("Kuiper's V statistic             : ", f(V)),
    with_p("Cramér-von Mises's W2 statistic  : ", W2, tail_of("W2", W2 * (1 + 0.5 / n))),
    with_p("Watson's U2 statistic            : ", U2, tail_of("U2", U2 * (1 + 0.5 / n))),
    with_p("Anderson-Darling's A2 statistic  : ", A2, tail_of("A2", A2 * (1 + 0.75 / n + 2.25 / n^2))),
    with_p("Shapiro-Wilk's W statistic       : ", shapiro(s)$W, shapiro(s)$P))
}

Qn <- function(s) {  # from all pairs: Rousseeuw and Croux (1993), the later factors for finite samples
  n <- length(s)
  factor <- if (n <= 12) c(NA, .399356, .99365, .51321, .84401, .61220, .85877, .66993, .87344, .72014, .88906, .75743)[n]
            else if (n %% 2 == 1) 1 / (1 + (1.60188 + (-2.1284 - 5.172 / n) / n) / n)
            else 1 / (1 + (3.67561 + (1.9654 + (6.987 - 77 / n) / n) / n) / n)
  2.21914 * factor * sort(dist(s))[choose(n %/% 2 + 1, 2)]
}

# The lines of a regression's two parameters.
estimates <- function(labels, fit) {
  s <- summary(fit)$coefficients
  paste0(labels, f(s[, 1]), " ± ", f(s[, 2]))
}
t_tests <- function(labels, fit) {
  s <- summary(fit)$coefficients
  paste0(labels, f(s[, 3]), " (", p(s[, 4]), ")")
}

gradient <- function(value, at) sapply(seq_along(at), function(i) {
  h <- 1e-3 * max(1, abs(at[i]))
  to <- function(k) value(replace(at, i, at[i] + k * h))
  (8 * (to(1) - to(-1)) - (to(2) - to(-2))) / (12 * h)
})
