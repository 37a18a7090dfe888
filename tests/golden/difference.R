# Derives the numbers and verdicts of difference_*.txt a second time, with R's own data and routines, and compares line
# by line.
#   Rscript tests/golden/difference.R        (R 4.2; not part of the test run)
# The sub-samples are drawn anew by a Mersenne Twister of 64 bits (Nishimura, 2000, ACM Transactions on Modeling and
# Computer Simulation 10, 348-357) in limbs of 16 bits, lowest first: a number a row.

here <- dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE)))

limbs <- function(hex) t(as.numeric(strtoi(substring(hex, c(13, 9, 5, 1), c(16, 12, 8, 4)), 16L)))
xor64 <- function(a, b) matrix(bitwXor(as.integer(a), as.integer(b)), nrow(a))
and64 <- function(a, mask) matrix(bitwAnd(as.integer(a), as.integer(mask[rep(1, nrow(a)), ])), nrow(a))
right <- function(a, bits) {
  word <- bits %/% 16; bits <- bits %% 16
  wide <- cbind(a, matrix(0, nrow(a), 5))[, word + 1:5, drop = FALSE]
  wide[, 1:4, drop = FALSE] %/% 2^bits + wide[, 2:5, drop = FALSE] %% 2^bits * 2^(16 - bits)
}
left <- function(a, bits) {
  word <- bits %/% 16; bits <- bits %% 16
  wide <- cbind(matrix(0, nrow(a), 5), a)[, 5:9 - word, drop = FALSE]
  wide[, 2:5, drop = FALSE] * 2^bits %% 65536 + wide[, 1:4, drop = FALSE] %/% 2^(16 - bits)
}
times <- function(a, b, plus) {
  product <- c(plus, 0, 0, 0)
  for (i in 1:4) for (j in seq_len(5 - i)) product[i + j - 1] <- product[i + j - 1] + a[i] * b[j]
  for (i in 1:3) product[i + 1] <- product[i + 1] + product[i] %/% 65536
  t(product %% 65536)
}
seeded <- function(seed) {
  state <- matrix(0, 312, 4)
  state[1, 1:2] <- c(seed %% 65536, seed %/% 65536)
  for (i in 2:312) {
    last <- state[i - 1, , drop = FALSE]
    state[i, ] <- times(limbs("5851f42d4c957f2d"), xor64(last, right(last, 62)), i - 1)
  }
  state
}
twisted <- function(state) {
  twist <- function(rows, partners) {
    joined <- and64(state[rows, , drop = FALSE], limbs("ffffffff80000000")) +
      and64(state[rows %% 312 + 1, , drop = FALSE], limbs("000000007fffffff"))
    xor64(xor64(state[partners, , drop = FALSE], right(joined, 1)), (joined[, 1] %% 2) %o% c(limbs("b5026f5aa96619e9")))
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
    y <- xor64(y, and64(right(y, 29), limbs("5555555555555555")))
    y <- xor64(y, and64(left(y, 17), limbs("71d67fffeda60000")))
    y <- xor64(y, and64(left(y, 37), limbs("fff7eee000000000")))
    y <- xor64(y, right(y, 43))
    draws <- c(draws, (y[, 4] * 2^37 + y[, 3] * 2^21 + y[, 2] * 2^5 + y[, 1] %/% 2^11) * 2^-53)
  }
  draws[seq_len(count)]
}
# The 10000th draw of the default seed, ISO C++ [rand.predef].
stopifnot(abs(uniforms(5489, 10000)[10000] - 9981545732273789042 / 2^64) < 2^-52)

f <- function(value, width = 10) {
  text <- sprintf("%*.5f", width, value)
  if (nchar(text) > width) sprintf("%*s", width, "n/a") else text
}
p <- function(value) f(if (value < 1e-5) value + 1e-5 else value, 7)  # a probability never prints as zero

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
  s <- summary(fit)$coefficients
  label <- function(words) paste0(formatC(words, width = -width), ": ")
  c(paste0(label(c("Estimate ß0 ± SD", "Estimate ß1 ± SD")), sapply(s[, 1], f), " ± ", sapply(s[, 2], f)),
    paste0(label(c("H0: ß0 = 0, T-value (P-value)", "H0: ß1 = 0, T-value (P-value)")), sapply(s[, 3], f), " (",
           sapply(s[, 4], p), ")"))
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

failed <- FALSE
compare <- function(name, x, y, percentage, count = 200, comments = TRUE, diverse = FALSE) {
  lines <- c(bootstrap(x, y, percentage, count), kleijnen(x, y, comments, diverse), altman(x, y))
  golden <- sub("\r$", "", readLines(file.path(here, name), encoding = "UTF-8"))
  golden <- golden[grepl(" : |!!|Size of", golden) & !grepl("^Equation", golden)]
  same <- length(lines) == length(golden) && all(lines == golden)
  cat(sprintf("%s: %d derived lines %s\n", name, length(lines), if (same) "are those of the text" else "differ"))
  if (!same) print(list(derived = lines, text = golden))
  failed <<- failed || !same
}

predicted <- unname(round(fitted(lm(mpg ~ wt + hp, mtcars)), 2))
compare("difference_mtcars.txt", predicted, mtcars$mpg, 8, 250.5)
compare("difference_mtcars_swapped.txt", mtcars$mpg, predicted, 5, comments = FALSE, diverse = TRUE)
compare("difference_cars.txt", cars$speed, cars$dist, 100)
compare("difference_pearson.txt", c(0, 0.9, 1.8, 2.6, 3.3, 4.4, 5.2, 6.1, 6.5, 7.4),
        c(5.9, 5.4, 4.4, 4.6, 3.5, 3.7, 2.8, 2.8, 2.4, 1.5), 327675)
if (failed) quit(status = 1)
