# Derives the numbers of mtcars.txt. The six lines and their SDs are computed from the definitions of Isobe, Feigelson,
# Akritas and Babu (1990) by an infinitesimal jackknife over the sums, and not by their closed formulas.

source(file.path(dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE))), "derive.R"))

x <- predicted; y <- observed
n <- length(x)
fit <- lm(y ~ x)
s <- summary(fit)$coefficients
sse <- sum(residuals(fit)^2)
mse <- sse / (n - 2)
r <- cor(x, y)
tr <- cor.test(x, y)
adjusted <- function(r2) 1 - (1 - r2) * (n - 1) / (n - 2)
resistant <- 1 - (median(abs(residuals(fit))) / median(abs(y - mean(y))))^2
q <- pgamma(sse / 2, (n - 2) / 2, lower.tail = FALSE)
pt2 <- function(t) 2 * pt(-abs(t), n - 2)
t1 <- (s[2, 1] - 1) / s[2, 2]
# F of a = 0 & b = 1, from the residual sums of the nested models.
f2 <- ((sum((y - x)^2) - sse) / 2) / mse
joint <- paste0("H0: a = 0 & b = 1    F-value (P-value): ", f(f2), " (", p(pf(f2, 2, n - 2, lower.tail = FALSE)), ") (")
two <- function(label, value, other, last) paste0(label, value, strrep(" ", 10), other, last)

lines <- c(
  estimates(c("Estimate a ± SD : ", "Estimate b ± SD : "), fit),
  two("MSE             : ", f(mse), "Root MSE            : ", f(sqrt(mse))),
  two("N               : ", sprintf("%10d", n), "r                   : ", f(r)),
  two("r²              : ", f(r^2), "Adj. r²             : ", f(adjusted(r^2))),
  two("Resistant r²    : ", f(resistant), "Adj. Resistant r²   : ", f(adjusted(resistant))),
  two("Chi²            : ", f(sse), "Q(Chi²)             : ", p(q, 10)),
  paste0("H0: r = 0            T-value (P-value): ", f(unname(tr$statistic)), " (", p(tr$p.value), ")"),
  t_tests(c("H0: a = 0            T-value (P-value): ", "H0: b = 0            T-value (P-value): "), fit),
  paste0("H0: b = 1            T-value (P-value): ", f(t1), " (", p(pt2(t1)), ")"),
  paste0(joint, "Dent and Blackie, 1979)"), paste0(joint, "Mayer et al., 1994)"))

# Slopes and intercepts as functions of the weights of the pairs; the SD is that of the influence of each weight.
slopes <- function(w) {
  mx <- sum(w * x) / sum(w); my <- sum(w * y) / sum(w)
  sxx <- sum(w * (x - mx)^2); syy <- sum(w * (y - my)^2); sxy <- sum(w * (x - mx) * (y - my))
  b1 <- sxy / sxx; b2 <- syy / sxy
  b <- c(b1, b2, tan((atan(b1) + atan(b2)) / 2), tan(atan2(2 * sxy, sxx - syy) / 2), sign(sxy) * sqrt(b1 * b2),
         (b1 + b2) / 2)
  c(my - b * mx, b)
}
estimate <- slopes(rep(1, n))
sd <- sapply(1:12, function(k) sqrt(sum(gradient(function(w) slopes(w)[k], rep(1, n))^2)))
a <- 1:6; b <- 7:12
labels <- c("OLS (Y/X)/Vertical LS    : ", "OLS (X/Y)/Horizontal LS  : ", "OLS Bisector             : ",
            "Orthogonal/Perpendicular : ", "Reduced Major Axis       : ", "Mean OLS (Y/X and X/Y)   : ")
shown <- function(value, k, P) paste0(f(value), " ± ", f(sd[k]), " (", p(P), ")")
lines <- c(lines, paste0(labels, shown(estimate[a], a, pt2(estimate[a] / sd[a])), "     ",
                         shown(estimate[b], b, pt2((estimate[b] - 1) / sd[b]))))
compare("mtcars.txt", lines, Filter(function(line) line %in% lines, golden("mtcars.txt")))
finish()
