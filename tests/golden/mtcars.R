# Derives the numbers of mtcars.txt a second time, with R's own data and routines, and compares line by line.
#   Rscript tests/golden/mtcars.R        (R 4.2; not part of the test run)
# The six lines and their SDs are computed from the definitions of Isobe, Feigelson, Akritas and Babu (1990) by an
# infinitesimal jackknife over the sums, and not by their closed formulas.

here <- dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE)))
golden <- readLines(file.path(here, "mtcars.txt"), encoding = "UTF-8")
golden <- sub("\r$", "", golden)

x <- unname(round(fitted(lm(mpg ~ wt + hp, mtcars)), 2))
y <- mtcars$mpg
n <- length(x)
f <- function(value, width = 10) sprintf("%*.5f", width, value)
p <- function(value) f(if (value < 1e-5) value + 1e-5 else value, 7)  # a probability never prints as zero

fit <- lm(y ~ x)
s <- summary(fit)$coefficients
sse <- sum(residuals(fit)^2)
mse <- sse / (n - 2)
r <- cor(x, y)
adjusted <- function(r2) 1 - (1 - r2) * (n - 1) / (n - 2)
resistant <- 1 - (median(abs(residuals(fit))) / median(abs(y - mean(y))))^2
q <- pgamma(sse / 2, (n - 2) / 2, lower.tail = FALSE)
pt2 <- function(t) 2 * pt(-abs(t), n - 2)
gap <- strrep(" ", 10)

# F tests of a = 0 & b = 1, from the residual sums of the nested models.
f2 <- ((sum((y - x)^2) - sse) / 2) / mse
pf2 <- pf(f2, 2, n - 2, lower.tail = FALSE)
tr <- cor.test(x, y)

lines <- c(
  paste0("Estimate a ± SD : ", f(s[1, 1]), " ± ", f(s[1, 2])),
  paste0("Estimate b ± SD : ", f(s[2, 1]), " ± ", f(s[2, 2])),
  paste0("MSE             : ", f(mse), gap, "Root MSE            : ", f(sqrt(mse))),
  paste0("N               : ", sprintf("%10d", n), gap, "r                   : ", f(r)),
  paste0("r²              : ", f(r^2), gap, "Adj. r²             : ", f(adjusted(r^2))),
  paste0("Resistant r²    : ", f(resistant), gap, "Adj. Resistant r²   : ", f(adjusted(resistant))),
  paste0("Chi²            : ", f(sse), gap, "Q(Chi²)             : ", sprintf("%10s", p(q))),
  paste0("H0: r = 0            T-value (P-value): ", f(unname(tr$statistic)), " (", p(tr$p.value), ")"),
  paste0("H0: a = 0            T-value (P-value): ", f(s[1, 3]), " (", p(s[1, 4]), ")"),
  paste0("H0: b = 0            T-value (P-value): ", f(s[2, 3]), " (", p(s[2, 4]), ")"),
  paste0("H0: b = 1            T-value (P-value): ", f((s[2, 1] - 1) / s[2, 2]), " (",
         p(pt2((s[2, 1] - 1) / s[2, 2])), ")"),
  paste0("H0: a = 0 & b = 1    F-value (P-value): ", f(f2), " (", p(pf2), ") (Dent and Blackie, 1979)"),
  paste0("H0: a = 0 & b = 1    F-value (P-value): ", f(f2), " (", p(pf2), ") (Mayer et al., 1994)"))

# Slopes and intercepts as functions of the weights of the pairs; the SD is that of the influence of each weight.
slopes <- function(w) {
  mx <- sum(w * x) / sum(w); my <- sum(w * y) / sum(w)
  sxx <- sum(w * (x - mx)^2); syy <- sum(w * (y - my)^2); sxy <- sum(w * (x - mx) * (y - my))
  b1 <- sxy / sxx; b2 <- syy / sxy
  b <- c(b1, b2, tan((atan(b1) + atan(b2)) / 2), tan(atan2(2 * sxy, sxx - syy) / 2), sign(sxy) * sqrt(b1 * b2),
         (b1 + b2) / 2)
  c(my - b * mx, b)
}
h <- 1e-4
influence <- sapply(seq_len(n), function(i) {
  w <- rep(1, n)
  at <- function(k) { w[i] <- 1 + k * h; slopes(w) }
  (8 * (at(1) - at(-1)) - (at(2) - at(-2))) / (12 * h)
})
estimate <- slopes(rep(1, n))
sd <- sqrt(rowSums(influence^2))
labels <- c("OLS (Y/X)/Vertical LS    : ", "OLS (X/Y)/Horizontal LS  : ", "OLS Bisector             : ",
            "Orthogonal/Perpendicular : ", "Reduced Major Axis       : ", "Mean OLS (Y/X and X/Y)   : ")
for (i in 1:6) {
  a <- estimate[i]; b <- estimate[6 + i]; sda <- sd[i]; sdb <- sd[6 + i]
  lines <- c(lines, paste0(labels[i], f(a), " ± ", f(sda), " (", p(pt2(a / sda)), ")     ", f(b), " ± ", f(sdb), " (",
                           p(pt2((b - 1) / sdb)), ")"))
}

missing <- setdiff(lines, golden)
cat(sprintf("%d of %d derived lines stand in mtcars.txt\n", length(lines) - length(missing), length(lines)))
if (length(missing) > 0) {
  cat(missing, sep = "\n")
  quit(status = 1)
}
