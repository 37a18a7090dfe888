# Derives the balance sections of balance_*.txt a second time, with R's own data and routines, and compares them line
# by line, in their order, to the end of each report.
#   Rscript tests/golden/balance.R        (R 4.2; not part of the test run)
# The sectors are taken from the sign of the residual and of the projection on the line's direction, not from where the
# perpendicular line reaches Y.

here <- dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE)))

number <- function(value, width, decimals) {  # halves away from zero
  scaled <- abs(value) * 10^decimals
  text <- sprintf("%.*f", decimals, sign(value) * floor(signif(scaled, 15) + 0.5) / 10^decimals)
  sprintf("%*s", width, ifelse(nchar(text) > width, "n/a", text))
}
f <- function(value) number(value, 10, 5)
p <- function(value) number(if (value < 1e-5) value + 1e-5 else value, 7, 5)  # never prints as zero
count <- function(value) if (value == 0) strrep(" ", 5) else sprintf("%5d", value)

table22 <- function(over, below)
  table(factor(!over, c(FALSE, TRUE)), factor(!below, c(FALSE, TRUE)))
byMean <- function(x, y, split) table22(y <= x, split < mean(split))
byLine <- function(x, y, a, b) {
  if (b == 0) return(byMean(x, y, x))
  residual <- y - a - b * x
  along <- x - mean(x) + b * (y - mean(y))
  table22(residual < 0 | residual == 0 & along <= 0, along <= 0)
}

# X2, P, Cramer's V, C of a table against equal shares, or for association.
even <- function(t) {
  test <- suppressWarnings(chisq.test(as.vector(t), p = rep(1 / 4, 4)))  # it warns of small counts
  x2 <- unname(test$statistic)
  c(x2, test$p.value, sqrt(x2 / (3 * sum(t))), sqrt(x2 / (x2 + sum(t))))
}
association <- function(t) {
  if (any(rowSums(t) == 0) || any(colSums(t) == 0)) return(c(0, 1, 0, 0))
  test <- suppressWarnings(chisq.test(t, correct = FALSE))
  x2 <- unname(test$statistic)
  c(x2, test$p.value, sqrt(x2 / sum(t)), sqrt(x2 / (x2 + sum(t))))
}
# The log odds ratio is the contrast of the logarithms of the cells, its variance the sum of their reciprocals.
odds <- function(t) {
  cells <- as.vector(t) + 0.5
  ln <- sum(c(1, -1, -1, 1) * log(cells))
  ase <- sqrt(sum(1 / cells))
  c(exp(ln), ln, ase, 2 * pnorm(-abs(ln / ase)))
}

rule <- strrep("-", 89)
pair <- function(label, values) paste0(label, f(values[1]), strrep(" ", 23), f(values[2]))
cellLines <- function(left, right) {
  n <- sum(left)
  row <- function(i) {
    cell <- function(t, j) paste0(count(t[i, j]), " (", number(100 * t[i, j] / n, 5, 2), "%)")
    paste0(cell(left, 1), " ", cell(left, 2), "    ", cell(right, 1), " ", cell(right, 2))
  }
  c(rule,
    "                              Below          Above             Below          Above      ",
    "                         --------------- ---------------  --------------- ---------------",
    paste0("         Overpredicted  :", row(1)), paste0("         Underpredicted :", row(2)), rule)
}
testLines <- function(left, right)
  c(paste0("      X² (Prob(X²=0))   :", f(left[1]), " (", p(left[2]), ")", strrep(" ", 13), f(right[1]), " (",
           p(right[2]), ")"),
    pair("      Cramer's V        :", c(left[3], right[3])), pair("      CCC               :", c(left[4], right[4])))
oddsLines <- function(left, right) {
  values <- rbind(odds(left), odds(right))
  c("", pair("Odds ratio              :", values[, 1]), pair("Ln(Odds ratio)          :", values[, 2]),
    pair("ASE(Ln(Odds ratio))     :", values[, 3]), pair("Prob(H0:Odds ratio = 1) :", values[, 4]))
}
titled <- function(title) c("", "", title, strrep("=", nchar(title)))

comments <- c("!! .Balanced allocation checks if 25% of the data points were in each cell !!",
  "!! .Current allocation checks if there is an association among the four cells !!",
  "!! .Cramer's V evaluates the strength of the association in which 0 is weak and 1 is perfect association!!",
  "!! .Contingency coefficient C is similar to Cramer's V and also lies between 0 and 1 !!",
  "!! .Odds ratio = 1 indicates independence among the four cells!!", "!! .ASE is the asymptotic standard error !!")
balance <- function(x, y, comment) {
  left <- byMean(x, y, x); right <- byMean(x, y, y)
  c(titled("BALANCE ANALYSIS (Harlow et al., 2006)"), if (comment) comments, "",
    "                              Model-Predicted Mean                 Observed Mean", cellLines(left, right),
    "Balanced allocation     :", testLines(even(left), even(right)),
    "Current allocation      :", testLines(association(left), association(right)), oddsLines(left, right), rule)
}
orthogonal <- function(x, y, a, b) {
  left <- byLine(x, y, 0, 1); right <- byLine(x, y, a, b)
  c(titled("ORTHOGONAL BALANCE (Harlow et al., 2006)"),
    paste0("Perpendicular lines at   Y = X                            Y = ", f(a), " + ", f(b), "X"),
    cellLines(left, right), testLines(association(left), association(right)), oddsLines(left, right))
}
both <- function(x, y, comment) {
  b <- if (var(x) == 0) 0 else cov(x, y) / var(x)
  c(balance(x, y, comment), orthogonal(x, y, mean(y) - b * mean(x), b))
}

compare <- function(name, lines) {
  golden <- sub("\r$", "", readLines(file.path(here, name), encoding = "UTF-8"))
  golden <- tail(golden, length(lines))
  agree <- sum(golden == lines)
  cat(sprintf("%s: %d of %d lines agree\n", name, agree, length(lines)))
  for (i in which(golden != lines)) cat("  report:  ", golden[i], "\n  derived: ", lines[i], "\n")
  agree == length(lines)
}

x <- unname(round(fitted(lm(mpg ~ wt + hp, mtcars)), 2))
y <- mtcars$mpg
# Pearson's data with York's weights: slope and intercept by direct minimisation of the weighted sum of squares.
px <- c(0, 0.9, 1.8, 2.6, 3.3, 4.4, 5.2, 6.1, 6.5, 7.4)
py <- c(5.9, 5.4, 4.4, 4.6, 3.5, 3.7, 2.8, 2.8, 2.4, 1.5)
wx <- c(1000, 1000, 500, 800, 200, 80, 60, 20, 1.8, 1)
wy <- c(1, 1.8, 4, 8, 20, 20, 70, 70, 100, 500)
york <- optimize(function(b) {
  w <- 1 / (1 / wy + b^2 / wx)
  sum(w * (py - b * px - sum(w * (py - b * px)) / sum(w))^2)
}, c(-1, 0), tol = 1e-12)$minimum
w <- 1 / (1 / wy + york^2 / wx)

agreed <- c(
  compare("balance_mtcars.txt", both(x, y, TRUE)),
  compare("balance_mtcars_swapped.txt", both(y, x, FALSE)),
  compare("balance_pearson.txt", orthogonal(px, py, sum(w * (py - york * px)) / sum(w), york)),
  compare("balance_level.txt", both(1:5, c(1, 3, 2, 3, 1), FALSE)),
  compare("balance_tied.txt", both(rep(2, 4), rep(3, 4), FALSE)))
quit(status = !all(agreed))
