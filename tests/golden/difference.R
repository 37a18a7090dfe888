# Derives the numbers and verdicts of difference_*.txt. The sub-samples are drawn anew by a Mersenne Twister of 64 bits
# (Nishimura, 2000, ACM Transactions on Modeling and Computer Simulation 10, 348-357), a row of bits for each number, the
# lowest first.

source(file.path(dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE))), "derive.R"))

bits <- function(hex)
  unlist(lapply(c(13, 9, 5, 1), function(at) intToBits(strtoi(substr(hex, at, at + 3), 16L))[1:16] == 1))
masked <- function(a, hex) a & rep(bits(hex), each = nrow(a))
right <- function(a, k) cbind(a[, (k + 1):64, drop = FALSE], matrix(FALSE, nrow(a), k))
left <- function(a, k) cbind(matrix(FALSE, nrow(a), k), a[, 1:(64 - k), drop = FALSE])
times <- function(a, b, plus) {  # of single numbers, modulo 2^64
  sums <- sapply(1:64, function(k) sum(a[1:k] & b[k:1]))
  for (k in 1:64) {
    plus <- plus + sums[k]
    sums[k] <- plus %% 2
    plus <- plus %/% 2
  }
  sums == 1
}
seeded <- function(seed) {
  state <- matrix(FALSE, 312, 64)
  state[1, 1:32] <- intToBits(seed) == 1
  for (i in 2:312) {
    last <- state[i - 1, , drop = FALSE]
    state[i, ] <- times(bits("5851f42d4c957f2d"), xor(last, right(last, 62)), i - 1)
  }
  state
}
twisted <- function(state) {
  twist <- function(rows, partners) {
    joined <- masked(state[rows, , drop = FALSE], "ffffffff80000000") |
      masked(state[rows %% 312 + 1, , drop = FALSE], "000000007fffffff")
    xor(xor(state[partners, , drop = FALSE], right(joined, 1)), outer(joined[, 1], bits("b5026f5aa96619e9"), "&"))
  }
  state[1:156, ] <- twist(1:156, 157:312)
  state[157:311, ] <- twist(157:311, 1:155)
  state[312, ] <- twist(312, 156)
  state
}
uniforms <- function(seed, count) {  # the upper 53 bits, in [0, 1)
  state <- seeded(seed); draws <- NULL
  while (length(draws) < count) {
    y <- state <- twisted(state)
    y <- xor(y, masked(right(y, 29), "5555555555555555"))
    y <- xor(y, masked(left(y, 17), "71d67fffeda60000"))
    y <- xor(y, masked(left(y, 37), "fff7eee000000000"))
    y <- xor(y, right(y, 43))
    draws <- c(draws, y[, 12:64] %*% 2^(-53:-1))
  }
  draws[seq_len(count)]
}
# The 10000th draw of the default seed, ISO C++ [rand.predef].
stopifnot(abs(uniforms(5489, 10000)[10000] - 9981545732273789042 / 2^64) < 2^-52)

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
