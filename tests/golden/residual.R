# Derives the numbers of the golden texts residual_*.txt a second time, with R's own data and routines.
#   Rscript tests/golden/residual.R [mtcars.json]        (R 4.2; not part of the test run)
# With the JSON of `corvane calc examples/mtcars.KOV --set RESIDUAL_ANALYSIS=1 --set ADD_COMMENT=1 --json mtcars.json`
# and all columns chosen, the columns are compared to 10 digits as well.
# Least-squares lines and their diagnostics are those of lm, rstandard, rstudent, hatvalues, cooks.distance and dffits;
# those of other lines follow from the same definitions with the line's own residuals.

here <- dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE)))
f <- function(value, width = 10, decimals = 5) sprintf(sprintf("%%%d.%df", width, decimals), value)
p <- function(value, width, decimals) f(value + (value < 10^-decimals) * 10^-decimals, width, decimals)
count <- function(value, width) if (value == 0 && width > 4) strrep(" ", width) else sprintf("%*d", width, value)

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

# Stephens (1986), Table 4.9, mean and variance unknown: bounds, then the coefficients of four ranges.
stephens <- list(
  W2 = list(c(0.0275, 0.051, 0.092), c(-13.953, 775.5, -12542.61), c(-5.903, 179.546, -1515.29),
            c(0.886, -31.62, 10.897), c(1.111, -34.242, 12.832)),
  U2 = list(c(0.0262, 0.048, 0.094), c(-13.642, 766.31, -12432.74), c(-6.3328, 214.57, -2022.28),
            c(0.8510, -32.006, -3.45), c(1.325, -38.918, 16.45)),
  A2 = list(c(0.2, 0.34, 0.6), c(-13.436, 101.14, -223.73), c(-8.318, 42.796, -59.938),
            c(0.9177, -4.279, -1.38), c(1.2937, -5.709, 0.0186)))
tail_of <- function(name, z) {
  range <- findInterval(z, stephens[[name]][[1]]) + 1
  q <- sum(stephens[[name]][[range + 1]] * z^(0:2))
  if (range <= 2) 1 - exp(q) else exp(q)
}
normality <- function(sample) {
  n <- length(sample); i <- seq_len(n)
  z <- pnorm(sort(unname(sample)), mean(sample), sd(sample))
  above <- max(i / n - z); below <- max(z - (i - 1) / n)
  W2 <- 1 / (12 * n) + sum((z - (2 * i - 1) / (2 * n))^2)
  U2 <- W2 - n * (mean(z) - 0.5)^2
  A2 <- -n - sum((2 * i - 1) * (log(z) + log(1 - rev(z)))) / n
  w <- shapiro.test(sample)
  with_p <- function(value, P) paste0(f(value), " (P = ", p(P, 6, 4), ")")
  c(paste0("Kolmogorov-Smirnov's D statistic : ", f(max(above, below))),
    paste0("Kuiper's V statistic             : ", f(above + below)),
    paste0("Cramér-von Mises's W2 statistic  : ", with_p(W2, tail_of("W2", W2 * (1 + 0.5 / n)))),
    paste0("Watson's U2 statistic            : ", with_p(U2, tail_of("U2", U2 * (1 + 0.5 / n)))),
    paste0("Anderson-Darling's A2 statistic  : ",
           with_p(A2, tail_of("A2", A2 * (1 + 0.75 / n + 2.25 / n^2)))),
    paste0("Shapiro-Wilk's W statistic       : ", with_p(unname(w$statistic), w$p.value)))
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
  s <- summary(fit)$coefficients
  lines <- c(
    paste0("!! .Leverage is used to identify points with high leverage; if Leverage > ", leverage, " !!"),
    paste0("!! .DFFITS is used to identify the influence of the ith point on the fitted value; if |DFFITS| > ",
           dffits, " !!"),
    paste0("Deviation                               : ", count(starred[["Deviation"]], 4)),
    paste0("Residue                                 : ", count(starred[["Residue"]], 4)),
    paste0("RStdtResidue (<-2.5 or >2.5)            : ", count(starred[["RStdtRes"]], 4)),
    paste0("Leverage > ", leverage, "                       : ", count(starred[["Leverage"]], 4)),
    paste0("Cook's D (P(F(Cook's D, p, n-p)) > 0.5) : ", count(starred[["CookD"]], 4)),
    paste0("|DFFITS| > ", dffits, "                       : ", count(starred[["DFFITS"]], 4)),
    normality(d$Residue), normality(d$StdtRes), normality(d$RStdtRes),
    paste0("Deviation interval [lower - upper]                     : [", f(-z, 0, 4), ", ", f(z, 0, 4), "]"),
    paste0("Deviation interval as ± % of the Mean of Y (observed)  : ", f(z * 100 / mean(y), 10, 4), "%"),
    paste0("Approximate (1 - Alpha), %                             :", f(95, 10, 2)),
    paste0("Number of data points above the upper acceptance limit :", count(above, 10), " (", f(above * 100 / n),
           "%)"),
    paste0("Number of data points below the lower acceptance limit :", count(below, 10), " (", f(below * 100 / n),
           "%)"),
    paste0("Percentage of data points out of the acceptance limits :", f((above + below) * 100 / n), "%"),
    paste0("Estimate a ± SD : ", f(s[1, 1]), " ± ", f(s[1, 2])),
    paste0("Estimate b ± SD : ", f(s[2, 1]), " ± ", f(s[2, 2])),
    paste0("r²              : ", f(cor(d$Fitted, d$Residue)^2)),
    paste0("H0: a = 0            T-value (P-value): ", f(s[1, 3]), " (", p(s[1, 4], 7, 5), ")"),
    paste0("H0: b = 0            T-value (P-value): ", f(s[2, 3]), " (", p(s[2, 4], 7, 5), ")"))
  list(rows = rows, lines = lines, diagnostics = d)
}

# Residuals of a least-squares line have no slope, so what is left of it is rounding and has no sign of its own.
without_sign <- function(lines) gsub("-0.00000", " 0.00000", lines, fixed = TRUE)
read_golden <- function(name) without_sign(sub("\r$", "", readLines(file.path(here, name), encoding = "UTF-8")))
failed <- FALSE
# The derived lines must stand in the text in their order, and no other line may hold a number with decimals.
compare <- function(name, derived, comments = TRUE) {
  golden <- read_golden(name)
  derived <- without_sign(if (comments) derived else derived[!startsWith(derived, "!!")])
  at <- 0; missing <- character()
  for (line in derived) {
    found <- which(golden[seq_along(golden) > at] == line)
    if (length(found) == 0) missing <- c(missing, line) else at <- at + found[1]
  }
  known <- c(derived,
             "!! .RStdtRes is used to identify outliers usually when outside of the range -2.5 to 2.5 !!",
             paste("!! .Cook's D identifies the influence of the ith point on all fitted values;",
                   "if P(F(Cook's D, p, n-p)) > 0.5 !!"))
  rest <- setdiff(grep("[0-9]\\.[0-9]", golden, value = TRUE), known)
  cat(sprintf("%d of %d derived lines stand in %s, %d others hold numbers\n", length(derived) - length(missing),
              length(derived), name, length(rest)))
  writeLines(c(missing, rest))
  failed <<- failed || length(missing) + length(rest) > 0
}

all_columns <- c("X", "Y", "Deviation", "Fitted", "Residue", "NormRes", "SERes", "SemiStdtR", "StdtRes", "RStdtRes",
                 "Leverage", "CookD", "DFFITS", "PRESS")
usual <- setdiff(all_columns, c("NormRes", "SemiStdtR", "PRESS"))
together <- function(derived) c(derived$lines[1:2], derived$rows, derived$lines[-(1:2)])

x <- unname(round(fitted(lm(mpg ~ wt + hp, mtcars)), 2)); y <- mtcars$mpg
line <- unname(coef(lm(y ~ x)))
mtcars_text <- derive(x, y, line[1], line[2], all_columns)
compare("residual_mtcars.txt", together(mtcars_text))
line <- unname(coef(lm(x ~ y)))
compare("residual_swapped.txt", together(derive(y, x, line[1], line[2], usual)), comments = FALSE)

# Least absolute deviations: some best line goes through two of the points.
x <- cars$speed; y <- cars$dist
pairs <- combn(length(x), 2)
pairs <- pairs[, x[pairs[1, ]] != x[pairs[2, ]]]
b <- (y[pairs[2, ]] - y[pairs[1, ]]) / (x[pairs[2, ]] - x[pairs[1, ]])
a <- y[pairs[1, ]] - b * x[pairs[1, ]]
best <- which.min(sapply(seq_along(b), function(i) sum(abs(y - a[i] - b[i] * x))))
cars_text <- derive(x, y, a[best], b[best], all_columns)
compare("residual_cars.txt", cars_text$lines)
compare("residual_cars_file.txt", cars_text$rows)

# Errors in both variables (York, 1966): the slope that minimises the weighted sum of squares.
x <- c(0, 0.9, 1.8, 2.6, 3.3, 4.4, 5.2, 6.1, 6.5, 7.4); y <- c(5.9, 5.4, 4.4, 4.6, 3.5, 3.7, 2.8, 2.8, 2.4, 1.5)
vx <- 1 / c(1000, 1000, 500, 800, 200, 80, 60, 20, 1.8, 1); vy <- 1 / c(1, 1.8, 4, 8, 20, 20, 70, 70, 100, 500)
intercept <- function(b) weighted.mean(y - b * x, 1 / (vy + b^2 * vx))
b <- optimize(function(b) sum((y - intercept(b) - b * x)^2 / (vy + b^2 * vx)), c(-1, 0), tol = 1e-12)$minimum
compare("residual_pearson.txt", together(derive(x, y, intercept(b), b, character())), comments = FALSE)

if (length(commandArgs(TRUE)) > 0) {
  json <- paste(readLines(commandArgs(TRUE)[1]), collapse = " ")
  table <- sub(".*\"tables\": ", "", json)
  for (name in all_columns) {
    column <- sub(sprintf(".*?\"%s\": \\[([^]]*)\\].*", name), "\\1", table, perl = TRUE)
    difference <- max(abs(as.numeric(strsplit(column, ",")[[1]]) / mtcars_text$diagnostics[[name]] - 1))
    cat(sprintf("%-10s largest relative difference %.1e\n", name, difference))
    failed <- failed || !(difference < 1e-10)
  }
}
if (failed) quit(status = 1)
