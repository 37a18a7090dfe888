# Derives the balance sections of balance_*.txt, every line to the end of each report.
# The sectors are taken from the sign of the residual and of the projection on the line's direction, not from where the
# perpendicular line reaches Y.

source(file.path(dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE))), "derive.R"))

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
tested <- function(t, degrees, ...) {
  test <- suppressWarnings(chisq.test(t, ...))  # it warns of small counts
  x2 <- unname(test$statistic)
  c(x2, test$p.value, sqrt(x2 / (degrees * sum(t))), sqrt(x2 / (x2 + sum(t))))
}
even <- function(t) tested(as.vector(t), 3)
association <- function(t)
  if (any(rowSums(t) == 0) || any(colSums(t) == 0)) c(0, 1, 0, 0) else tested(t, 1, correct = FALSE)
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
    cell <- function(t, j) paste0(count(t[i, j]), " (", f(100 * t[i, j] / n, 5, 2), "%)")
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

comments <- c("!! .Balanced allocation checks if 25% of the data points were in each cell !!",
  "!! .Current allocation checks if there is an association among the four cells !!",
  "!! .Cramer's V evaluates the strength of the association in which 0 is weak and 1 is perfect association!!",
  "!! .Contingency coefficient C is similar to Cramer's V and also lies between 0 and 1 !!",
  "!! .Odds ratio = 1 indicates independence among the four cells!!", "!! .ASE is the asymptotic standard error !!")
balance <- function(x, y, comment) {
  left <- byMean(x, y, x); right <- byMean(x, y, y)
  c("", "", titled("BALANCE ANALYSIS (Harlow et al., 2006)"), if (comment) comments, "",
    "                              Model-Predicted Mean                 Observed Mean", cellLines(left, right),
    "Balanced allocation     :", testLines(even(left), even(right)),
    "Current allocation      :", testLines(association(left), association(right)), oddsLines(left, right), rule)
}
orthogonal <- function(x, y, a, b) {
  left <- byLine(x, y, 0, 1); right <- byLine(x, y, a, b)
  c("", "", titled("ORTHOGONAL BALANCE (Harlow et al., 2006)"),
    paste0("Perpendicular lines at   Y = X                            Y = ", f(a), " + ", f(b), "X"),
    cellLines(left, right), testLines(association(left), association(right)), oddsLines(left, right))
}
both <- function(x, y, comment) {
  b <- if (var(x) == 0) 0 else cov(x, y) / var(x)
  c(balance(x, y, comment), orthogonal(x, y, mean(y) - b * mean(x), b))
}

check <- function(name, lines) compare(name, lines, tail(golden(name), length(lines)))
check("balance_mtcars.txt", both(predicted, observed, TRUE))
check("balance_mtcars_swapped.txt", both(observed, predicted, FALSE))
check("balance_pearson.txt", orthogonal(pearson$x, pearson$y, york[1], york[2]))
check("balance_level.txt", both(1:5, c(1, 3, 2, 3, 1), FALSE))
check("balance_tied.txt", both(rep(2, 4), rep(3, 4), FALSE))
finish()
