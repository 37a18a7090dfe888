# Derives the four sections of the adequacy_*.txt, every line.
# Other roads than the program's: t.test and var.test; the intraclass correlation by analysis of variance; the standard
# errors of both concordance estimators by numerical derivatives over the normal distribution's covariances of the
# sample moments; the generalized coefficient by double sums, its standard error by an infinitesimal jackknife.

source(file.path(dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE))), "derive.R"))

limits <- function(low, high) sprintf("[%.5f, %.5f]", low, high)
quantile975 <- qnorm(0.975)

diverse <- function(x, y, comments, swapped) {
  d <- y - x
  test <- function(label, t) paste0("H0: ", label, ": ", f(unname(t$statistic)), " (P =", p(t$p.value, 10), ")")
  percent <- function(measure, side, observed, value, m) paste0(
    sprintf("%-35s", paste0(measure, ", % of ", side, if (observed) " (Observed)" else " (Predicted)")), ": ",
    if (m > 0) f(100 * value / m) else paste0("!! Mean ", side, " is Zero !!"))
  aboutMean <- sum((y - mean(y))^2)
  cited <- " (Loague and Green, 1991; Zacharias et al., 1996)"
  c(titled("DIVERSE MEASURE ANALYSES"),
    if (comments) c("!! .MEF is modeling efficiency; closer to one better it is !!",
                    "!! .CD is the coefficient of model determination; closer to one better it is !!"),
    paste0("Mean Bias (Y - X) (MB)             : ", f(mean(d)),
           if (comments) paste0(" !! Model ", if (mean(d) > 0) "under" else "over", "prediction !!"),
           " (Cochran and Cox, 1954)"),
    percent("Mean Bias", "X", swapped, mean(d), mean(x)),
    percent("Mean Bias", "Y", !swapped, mean(d), mean(y)),
    test("VarY = VarX, F-value           ", var.test(y, x)),
    test("MB = 0, T-value (same var.)    ", t.test(y, x, var.equal = TRUE)),
    test("MB = 0, T-value (diff. var.)   ", t.test(y, x)),
    test("MB = 0, T-value (paired w/cov.)", t.test(y, x, paired = TRUE)),
    test("MB = 0, T-value (paired diff.) ", t.test(d)),
    "",
    paste0("Mean Absolute Error |Y - X| (MAE)  : ", f(mean(abs(d)))),
    percent("MAE", "X", swapped, mean(abs(d)), mean(x)),
    percent("MAE", "Y", !swapped, mean(abs(d)), mean(y)),
    paste0("MA%E, |Y - X|/Y                    : ", f(100 * mean(abs(d / y)))),
    "",
    paste0("MEF                                : ", f(1 - sum(d^2) / aboutMean), cited),
    paste0("CD                                 : ", f(aboutMean / sum((x - mean(y))^2)), cited),
    paste0("Maximum error = Max|Y - X|         : ", f(max(abs(d)))))
}

concordance <- function(x, y, comments) {
  n <- length(x)
  # Moments with divisor n in the order mean x, mean y, sxx, sxy, syy; Cov(s_ij, s_kl) = s_ik s_jl + s_il s_jk over n.
  s <- cov(cbind(x, y)) * (n - 1) / n
  m <- c(mean(x), mean(y), s[1, 1], s[1, 2], s[2, 2])
  index <- list(c(1, 1), c(1, 2), c(2, 2))
  covariance <- matrix(0, 5, 5)
  covariance[1:2, 1:2] <- s
  for (a in 1:3) for (b in 1:3) {
    i <- index[[a]]; k <- index[[b]]
    covariance[2 + a, 2 + b] <- s[i[1], k[1]] * s[i[2], k[2]] + s[i[1], k[2]] * s[i[2], k[1]]
  }
  lin <- function(m) 2 * m[4] / (m[3] + m[5] + (m[1] - m[2])^2)
  liao <- function(m) {
    r <- m[4] / sqrt(m[3] * m[5]); v <- sqrt(m[5] / m[3]); u2 <- (m[1] - m[2])^2 / sqrt(m[3] * m[5])
    r * (4 - r * (v + 1 / v)) / ((2 - r) * (v + 1 / v) + u2)
  }
  se <- function(estimate) { g <- gradient(estimate, m); sqrt(sum(g * (covariance %*% g)) / (n - 2)) }
  r <- cor(x, y)
  u <- (mean(y) - mean(x)) / (s[1, 1] * s[2, 2])^0.25
  z <- function(t) paste0(f(t), " (", p(2 * pnorm(-abs(t)), 10), " )")
  comment <- if (comments) "!!  Inverse hyperbolic tangent transformation to improve normal approximation !!"
  block <- function(name, tail, pad, estimate, sd) {
    te <- atanh(estimate); tsd <- sd / (1 - estimate^2)
    c(paste0(name, " ± SE ", name, tail, ": ", f(estimate), " ± ", f(sd)),
      paste0("Z-value (P-Value)    ", pad, ": ", z(estimate / sd)),
      paste0("Lower - Upper 95% CI ", pad, ": ", limits(estimate - quantile975 * sd, estimate + quantile975 * sd)),
      comment,
      paste0("Transformed ", name, " ± SE ", name, "              : ", f(te), " ± ", f(tsd)),
      paste0("Transformed Z-value (P-Value)       : ", z(te / tsd)),
      paste0("Transformed Lower - Upper 95% CI    : ", limits(te - quantile975 * tsd, te + quantile975 * tsd)),
      paste0("Un-transformed Lower - Upper 95% CI : ",
             limits(tanh(te - quantile975 * tsd), tanh(te + quantile975 * tsd))))
  }
  long <- data.frame(value = c(x, y), pair = factor(rep(seq_len(n), 2)), side = factor(rep(1:2, each = n)))
  ms <- anova(lm(value ~ pair + side, long))[["Mean Sq"]]
  icc <- (ms[1] - ms[3]) / (ms[1] + ms[3] + 2 / n * (ms[2] - ms[3]))
  c(titled(paste("CONCORDANCE CORRELATION COEFFICIENT (Lin, 1989; Gromeive et al., 1991; Nickerson, 1997;",
                 "Liao, 2003)")),
    titled("Lin (1998)", "-"),
    paste0("Scale shift (v)      : ", f(sd(y) / sd(x))),
    paste0("Location shift (u)   : ", f(u),
           if (comments) paste0(" !! Model ", if (u > 0) "under" else "over", "prediction !!")),
    paste0("Bias correction (Cb) : ", f(lin(m) / r)),
    block("rc", "           ", "", lin(m), se(lin)), "",
    titled("Intraclass Correlation Coefficient (ICC)", "-"), paste0("rc : ", f(icc)), "",
    titled("Liao (2003)", "-"),
    paste0("Ar (~ Cb)              : ", f(liao(m) / r)),
    block("Gr", " (~ rc)      ", "  ", liao(m), se(liao)))
}

generalized <- function(x, y) {
  n <- length(x)
  s <- sqrt(Qn(x) * Qn(y))
  cap <- 2 * sqrt(2) * s; h <- 1.345 * sqrt(2) * s
  distances <- list(
    "SQUARED distance" = function(z) z^2,
    "ABSOLUTE distance" = abs,
    "ABSOLUTE distance to POWER 1.5" = function(z) abs(z)^1.5,
    "Winsorized Squared distance" = function(z) pmin(z^2, cap^2),
    "Winsorized Absolute distance" = function(z) pmin(abs(z), cap),
    "Winsorized Absolute distance to POWER 1.5" = function(z) pmin(abs(z), cap)^1.5,
    "Huber function" = function(z) ifelse(abs(z) <= h, z^2 / 2, h * abs(z) - h^2 / 2))
  row <- function(name) {
    g <- distances[[name]]
    A <- g(outer(x, y, "-")) - g(outer(x, y, "+"))
    B <- (g(2 * x) + g(2 * y)) / 2
    coefficient <- function(w) {
      w <- w / sum(w)
      v1 <- sum(w * (A %*% w))
      (v1 - sum(w * diag(A))) / (v1 + sum(w * B))
    }
    rg <- coefficient(rep(1, n))
    se <- sqrt(sum((n * gradient(coefficient, rep(1, n)))^2) / (n * (n - 1)))
    half <- quantile975 * se / (1 - rg^2)
    # A capped distance can pass 1, where there is no transformation.
    ends <- if (abs(rg) < 1) tanh(atanh(rg) + c(-half, half)) else rep(sign(rg), 2)
    paste0(sprintf("%-43s", name), f(rg), " ± ", f(se), "   ", limits(ends[1], ends[2]))
  }
  header <- "Method                                          CCC (rg ± SE rg)     Lower - Upper 95% CI"
  rule <- strrep("-", nchar(header))
  c(titled("GENERALIZED CONCORDANCE CORRELATION COEFFICIENT (King and Chinchilli, 2001a,b)"), header, rule,
    sapply(names(distances), row, USE.NAMES = FALSE), rule)
}

meanSquare <- function(x, y) {
  n <- length(x)
  squares <- (y - x)^2
  msep <- mean(squares)
  variance <- var(squares) / n
  sdn <- function(v) sqrt(mean((v - mean(v))^2))
  fit <- lm(y ~ x)
  part <- function(label, value) paste0(sprintf("%-36s", label), ": ", f(value, 11), " (", f(100 * value / msep, 7, 3), " %)")
  bias <- part("Mean bias ==> Mean X <> Mean Y", mean(y - x)^2)
  line <- function(label, value) paste0(sprintf("%-36s", label), ": ", f(value, 11))
  c(titled("MEAN SQUARE ERROR OF PREDICTION (Bibby and Toutenburg, 1977)"),
    line("Mean Square Error of Prediction", msep),
    line("Variance of MSEP", variance),
    line("Standard deviation of MSEP", sqrt(variance)),
    line("Coefficient of variation of MSEP, %", 100 * sqrt(variance) / msep),
    line("Square root of MSEP (RMSEP)", sqrt(msep)),
    line("RMSEP, % of mean X", 100 * sqrt(msep) / mean(x)),
    line("RMSEP, % of mean Y", 100 * sqrt(msep) / mean(y)),
    "", "MSEP Decomposition I:", bias,
    part("Unequal variances ==> Sx <> Sy", (sdn(x) - sdn(y))^2),
    part("Incomplete (co)variation ==> r <> 1", 2 * sdn(x) * sdn(y) * (1 - cor(x, y))),
    "", "MSEP Decomposition II:", bias,
    part("Systematic bias ==> b <> 1", sdn(x)^2 * (1 - unname(coef(fit)[2]))^2),
    part("Random errors ==> r2 <> 1", mean(residuals(fit)^2)))
}

check <- function(name, x, y, comments = TRUE, swapped = FALSE) {
  printed <- golden(name)
  derived <- c(diverse(x, y, comments, swapped), "", "", concordance(x, y, comments), "", "", generalized(x, y), "", "",
               meanSquare(x, y))
  compare(name, derived, printed[match("DIVERSE MEASURE ANALYSES", printed):length(printed)])
}
check("adequacy_mtcars.txt", predicted, observed)
check("adequacy_swapped.txt", observed, predicted, comments = FALSE, swapped = TRUE)
check("adequacy_negative.txt", c(-5, -3.5, -1.5, 0.5, -2.5, 0), c(-4.25, -4.5, -1, 1.5, -3.25, -0.5))
finish()
