# Derives the numbers and verdicts of difference_*.txt. The sub-samples are drawn anew by the Mersenne Twister of
# tests/generator/reference.py.

source(file.path(dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE))), "derive.R"))

uniforms <- function(seed, count) {  # the upper 53 bits, in [0, 1)
  script <- file.path(here, "..", "generator", "reference.py")
  as.numeric(system2("python3", c(shQuote(script), seed, sprintf("%d", count)), stdout = TRUE))
}

bootstrap <- function(x, y, percentage, count) {
  n <- length(x)
  size <- round(percentage * n / 100)  # R, too, rounds halves to even
  results <- rep(0, 4)
  if (size < 3)
    return(paste0("Size of sub-samples has to be greater than 3. Size has to be at least  ", floor(300 / n)))
  if (size <= 32767) {
    draws <- matrix(uniforms(20240611, round(count) * n), n)
    series <- apply(draws, 2, function(u) {
      square <- (y - x)[u * 100 <= percentage]^2
      k <- length(square)
      c(if (k > 0) mean(square) else 0, if (k > 1) var(square) / k else 0)
    })
    results <- c(mean(series[1, ]), var(series[1, ]), mean(series[2, ]), var(series[2, ]))
    # The mean of all rounds against its expectation: MSEP but for the empty sub-samples, which count as 0.
    expected <- mean((y - x)^2) * (1 - (1 - percentage / 100)^n)
    stopifnot(abs(results[1] - expected) <= 4 * sqrt(results[2] / round(count)) + 1e-12 * expected)
  }
  labels <- c("Sub-samples           : ", "Size                  : ", "Mean MSEP             : ",
              "Variance of MSEP      : ", "Mean Var MSEP         : ", "Variance of Var MSEP  : ")
  paste0(labels, sapply(c(count, size, results), f, width = 20))[if (size > 32767) -2 else 1:6]
}

coefficients <- function(fit, width) {
  label <- function(words) paste0(formatC(words, width = -width), ": ")
  c(estimates(label(c("Estimate ß0 ± SD", "Estimate ß1 ± SD")), fit),
    t_tests(label(c("H0: ß0 = 0, T-value (P-value)", "H0: ß1 = 0, T-value (P-value)")), fit))
}

kleijnen <- function(x, y, comments, diverse) {
  s <- x + y; d <- x - y; n <- length(x)
  fit <- lm(d ~ s)
  joint <- anova(lm(d ~ 0), fit)$F[2]
  pf <- pf(joint, n - 2, 2)
  pm <- if (diverse) 0 else t.test(y, x, paired = TRUE)$p.value
  pv <- if (diverse) 0 else var.test(y, x)$p.value
  r <- cor.test(x, y)
  verdict <- paste(if (pf < 0.05) "!! Reject H0 and conclude the model does not meet" else
    "!! Fail to reject H0 and conclude the model meets", "the stringent validation requirement !!")
  c(coefficients(fit, 39), paste0("H0: ß0 = 0 & ß1 = 0, F-value (P-value) : ", f(joint), " (", p(pf), ")"),
    if (r$estimate >= 0 && pm >= 0.05 && pv >= 0.05) { if (comments) verdict } else c(
      if (pm < 0.05) "!! Stringent assumption of identical mean failed !!",
      if (pv < 0.05) "!! Stringent assumption of identical variance failed !!",
      if (r$estimate < 0 || r$p.value > 0.05) "!! Stringent assumption of positive correlation failed !!"))
}

altman <- function(x, y) {
  d <- x - y; average <- (x + y[1]) / 2
  coefficients(lm(average ~ d), 31)
}

check <- function(name, x, y, percentage, count = 200, comments = TRUE, diverse = FALSE) {
  printed <- golden(name)
  compare(name, c(bootstrap(x, y, percentage, count), kleijnen(x, y, comments, diverse), altman(x, y)),
          printed[grepl(" : |!!|Size of", printed) & !grepl("^Equation", printed)])
}
check("difference_mtcars.txt", predicted, observed, 8, 250.5)
check("difference_mtcars_swapped.txt", observed, predicted, 5, comments = FALSE, diverse = TRUE)
check("difference_cars.txt", cars$speed, cars$dist, 100)
check("difference_pearson.txt", pearson$x, pearson$y, 327675)
finish()
