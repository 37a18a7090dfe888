# Derives the numbers of residual_*.txt.
# Least-squares lines and their diagnostics are those of lm, rstandard, rstudent, hatvalues, cooks.distance and dffits;
# those of other lines follow from the same definitions with the line's own residuals.

source(file.path(dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE))), "derive.R"))

diagnostics <- function(x, y, a, b) {
  n <- length(x)
  e <- y - a - b * x
  mse <- sum(e^2) / (n - 2)
  fit <- lm(y ~ x)
  h <- unname(hatvalues(fit))
  if (isTRUE(all.equal(c(a, b), unname(coef(fit)), tolerance = 1e-13))) {
    t <- rstandard(fit); r <- rstudent(fit); D <- cooks.distance(fit); dff <- dffits(fit)
  } else {
    t <- e / sqrt(mse * (1 - h)); r <- t * sqrt((n - 3) / (n - 2 - t^2)); D <- t^2 * h / (2 * (1 - h))
    dff <- r * sqrt(h / (1 - h))
  }
  data.frame(X = x, Y = y, Deviation = y - x, Fitted = a + b * x, Residue = e,
             NormRes = sqrt(mse) * qnorm((rank(round(e, 9)) - 0.375) / (n + 0.25)),
             SERes = sqrt(mse * (1 - h)), SemiStdtR = e / sqrt(mse), StdtRes = t, RStdtRes = r, Leverage = h,
             CookD = D, DFFITS = dff, PRESS = e / (1 - h))
}

# The lines with numbers of a text, and apart from them the rows of the listing.
derive <- function(x, y, a, b, columns) {
  d <- diagnostics(x, y, a, b); n <- length(x)
  z <- qnorm(0.95) * sqrt(var(y) / n)
  leverage <- f(4 / n, 6, 4); dffits <- f(2 * sqrt(2 / n), 6, 4)
  star <- list(Deviation = d$Deviation < -z | d$Deviation > z,
               Residue = d$Residue < -0.1 * mean(y) | d$Residue > 0.1 * mean(y), RStdtRes = abs(d$RStdtRes) > 2.5,
               Leverage = d$Leverage > 4 / n, CookD = pf(d$CookD, 2, n - 2, lower.tail = FALSE) > 0.5,
               DFFITS = abs(d$DFFITS) > 2 * sqrt(2 / n))
  rows <- sprintf("%3d ", seq_len(n))
  for (name in columns) {
    mark <- if (name %in% names(star)) ifelse(star[[name]], "*", " ") else ""
    rows <- paste0(rows, f(d[[name]], 9, 4), mark, " ")
  }
  starred <- sapply(names(star), function(name) if (name %in% columns) sum(star[[name]]) else 0L)
  shown <- "Deviation" %in% columns
  above <- if (shown) sum(d$Deviation > z) else 0L
  below <- if (shown) sum(d$Deviation < -z) else 0L
  fit <- lm(d$Residue ~ d$Fitted)
  lines <- c(
    paste0("!! .Leverage is used to identify points with high leverage; if Leverage > ", leverage, " !!"),
    paste0("!! .DFFITS is used to identify the influence of the ith point on the fitted value; if |DFFITS| > ",
           dffits, " !!"),
    paste0("Deviation                               : ", sprintf("%4d", starred[["Deviation"]])),
    paste0("Residue                                 : ", sprintf("%4d", starred[["Residue"]])),
    paste0("RStdtResidue (<-2.5 or >2.5)            : ", sprintf("%4d", starred[["RStdtRes"]])),
    paste0("Leverage > ", leverage, "                       : ", sprintf("%4d", starred[["Leverage"]])),
    paste0("Cook's D (P(F(Cook's D, p, n-p)) > 0.5) : ", sprintf("%4d", starred[["CookD"]])),
    paste0("|DFFITS| > ", dffits, "                       : ", sprintf("%4d", starred[["DFFITS"]])),
    normality(d$Residue), normality(d$StdtRes), normality(d$RStdtRes),
    paste0("Deviation interval [lower - upper]                     : ", sprintf("[%.4f, %.4f]", -z, z)),
    paste0("Deviation interval as ± % of the Mean of Y (observed)  : ", f(z * 100 / mean(y), 10, 4), "%"),
    paste0("Approximate (1 - Alpha), %                             :", f(95, 10, 2)),
    paste0("Number of data points above the upper acceptance limit :", count(above, 10), " (", f(above * 100 / n),
           "%)"),
    paste0("Number of data points below the lower acceptance limit :", count(below, 10), " (", f(below * 100 / n),
           "%)"),
    paste0("Percentage of data points out of the acceptance limits :", f((above + below) * 100 / n), "%"),
    estimates(c("Estimate a ± SD : ", "Estimate b ± SD : "), fit),
    paste0("r²              : ", f(cor(d$Fitted, d$Residue)^2)),
    t_tests(c("H0: a = 0            T-value (P-value): ", "H0: b = 0            T-value (P-value): "), fit))
  list(rows = rows, lines = lines)
}

# Residuals of a least-squares line have no slope, so what is left of it is rounding and has no sign of its own.
without_sign <- function(lines) gsub("-0.00000", " 0.00000", lines, fixed = TRUE)
# No other line of the text may hold a number with decimals.
check <- function(name, derived, comments = TRUE) {
  printed <- without_sign(golden(name))
  derived <- without_sign(if (comments) derived else derived[!startsWith(derived, "!!")])
  numbers <- grepl("[0-9]\\.[0-9]", printed) & !grepl("^!! .(RStdtRes|Cook's D) ", printed)
  compare(name, derived, printed[numbers | printed %in% derived])
}

all_columns <- c("X", "Y", "Deviation", "Fitted", "Residue", "NormRes", "SERes", "SemiStdtR", "StdtRes", "RStdtRes",
                 "Leverage", "CookD", "DFFITS", "PRESS")
usual <- setdiff(all_columns, c("NormRes", "SemiStdtR", "PRESS"))
together <- function(derived) c(derived$lines[1:2], derived$rows, derived$lines[-(1:2)])

line <- coef(lm(observed ~ predicted))
check("residual_mtcars.txt", together(derive(predicted, observed, line[1], line[2], all_columns)))
line <- coef(lm(predicted ~ observed))
check("residual_swapped.txt", together(derive(observed, predicted, line[1], line[2], usual)), comments = FALSE)

# Least absolute deviations: some best line goes through two of the points.
x <- cars$speed; y <- cars$dist
pairs <- combn(length(x), 2)
pairs <- pairs[, x[pairs[1, ]] != x[pairs[2, ]]]
b <- (y[pairs[2, ]] - y[pairs[1, ]]) / (x[pairs[2, ]] - x[pairs[1, ]])
a <- y[pairs[1, ]] - b * x[pairs[1, ]]
best <- which.min(sapply(seq_along(b), function(i) sum(abs(y - a[i] - b[i] * x))))
cars_text <- derive(x, y, a[best], b[best], all_columns)
check("residual_cars.txt", cars_text$lines)
check("residual_cars_file.txt", cars_text$rows)

# Errors in both variables.
check("residual_pearson.txt", together(derive(pearson$x, pearson$y, york[1], york[2], character())), comments = FALSE)
finish()
