# Derives the numbers of ranks_mtcars.txt, ranks_mtcars_swapped.txt and ranks_ties.txt a second time with R's rank(),
# cor.test, wilcox.test, ecdf and dist, and compares them line by line, in their order; likewise the rank columns of
# ranks_ties_columns.txt.
#   Rscript tests/golden/ranks.R        (R 4.2; not part of the test run)

here <- dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE)))
options(warn = 1)
golden <- function(name) sub("\r$", "", readLines(file.path(here, name), encoding = "UTF-8"))

# Halves away from zero, as the report rounds; a count of 0 is blank, and what is too wide is not shown.
f <- function(value, width, decimals) {
  rounded <- sign(value) * floor(signif(abs(value) * 10^decimals, 15) + 0.5) / 10^decimals
  text <- if (decimals == 0 && rounded == 0) "" else sprintf("%.*f", decimals, rounded)
  sprintf("%*s", width, if (nchar(text) > width) "n/a" else text)
}
p <- function(value) f(if (value < 1e-5) value + 1e-5 else value, 10, 5)  # a probability never prints as zero

# Spearman's D under independence, with ties (Lehmann, 1975): mean (n^3 - n - u/2 - v/2)/6, variance
# (n - 1) n^2 (n + 1)^2 / 36 (1 - u/(n^3 - n)) (1 - v/(n^3 - n)), u and v the sums of t^3 - t over the ties.
rank_lines <- function(x, y, rx, ry) {
  n <- length(x)
  ties <- function(v) sum(table(v)^3 - table(v))
  u <- ties(x); v <- ties(y); n3 <- n^3 - n
  d <- sum((rx - ry)^2)
  zd <- (d - (n3 - u / 2 - v / 2) / 6) / sqrt((n - 1) * n^2 * (n + 1)^2 / 36 * (1 - u / n3) * (1 - v / n3))
  s <- cor.test(rx, ry)
  k <- cor.test(x, y, method = "kendall", exact = FALSE)
  at <- sort(unique(c(x, y)))
  ks <- max(abs(ecdf(x)(at) - ecdf(y)(at)))
  lambda <- (sqrt(n / 2) + 0.12 + 0.11 / sqrt(n / 2)) * ks  # Stephens (1970)
  pks <- 1 - sqrt(2 * pi) / lambda * sum(exp(-(2 * (1:50) - 1)^2 * pi^2 / (8 * lambda^2)))
  wd <- mean(sign(outer(y, x, "-")))
  one <- wilcox.test(y, x, exact = FALSE, correct = FALSE)$p.value / 2
  line <- function(label, value, test, statistic, probability)
    paste0(label, value, "     H0: ", test, f(statistic, 10, 5), " (", p(probability), ")")
  c(line("Spearman's r : ", f(s$estimate, 10, 5), "r = 0, T-value (P-value)          : ", s$statistic, s$p.value),
    line("D            : ", f(d, 10, 1), "D = 0, Z-value (P-value)          : ", zd, 2 * pnorm(-abs(zd))),
    line("Tau          : ", f(k$estimate, 10, 5), "Tau = 0, Z-value (P-value)        : ", k$statistic, k$p.value),
    line("KS           : ", f(ks, 10, 5), "dX = dY, N-value (P-value)        : ", n / 2, pks),
    line("Mann-Whitney : ", f(wd, 10, 5), "WD = 0, Z-value (1-sided P-value) : ", sign(wd) * qnorm(one, lower.tail = FALSE),
         one))
}

threshold_lines <- function(label, t, x, y) {
  off <- !(x == t & y == t)
  cells <- table(factor(y[off] > t, c(FALSE, TRUE)), factor(x[off] > t, c(FALSE, TRUE)))
  row <- function(name, k) paste0(name, f(cells[k, 1], 5, 0), " (", f(100 * cells[k, 1] / length(x), 5, 2), ")  ",
                                  f(cells[k, 2], 5, 0), " (", f(100 * cells[k, 2] / length(x), 5, 2), ")")
  c(paste0(label, f(t, 10, 5)), row("Below      ", 1), row("Above      ", 2),
    if (any(x == y)) paste0("Identical X and Y: ", f(sum(x == y), 5, 0)),
    if (!all(off)) paste0("Identical X, Y and Threshold: ", f(sum(!off), 5, 0)))
}

distance_lines <- function(x, y) {
  d <- function(...) as.numeric(dist(rbind(x, y), ...))
  q <- y / sum(y); e <- x / sum(x)
  c(paste0("Euclidean        : ", f(d(), 8, 3)),
    sapply(1:7, function(m) paste0("Minkowski, m = ", m, " : ", f(d("minkowski", p = m), 8, 3))),
    paste0("Canberra         : ", f(d("canberra"), 8, 3)),
    paste0("Czekanowski      : ", f(d("manhattan") / (sum(x) + sum(y)), 8, 3)),
    paste0("Kullback-Leibler : ", f(sum(q * log(q / e)), 8, 3)))
}

agreed <- 0; derived <- 0
compare <- function(name, lines, stand) {
  derived <<- derived + length(lines)
  if (length(stand) != length(lines)) stop(name, ": ", length(stand), " lines stand, ", length(lines), " derived")
  same <- stand == lines
  agreed <<- agreed + sum(same)
  if (!all(same)) cat(name, rbind(stand, lines)[, !same], sep = "\n")
}
# The lines with numbers from the rank analysis on: neither comments nor titles.
numbered <- function(text) {
  text <- text[seq_along(text) >= grep("^RANK ANALYSIS", text)]
  text[grepl("[0-9]", text) & !grepl("^!!|^RANK", text)]
}

x <- unname(round(fitted(lm(mpg ~ wt + hp, mtcars)), 2))
y <- mtcars$mpg
compare("ranks_mtcars.txt", numbered(golden("ranks_mtcars.txt")), c(
  rank_lines(x, y, rank(x), rank(y)),
  threshold_lines("Rank threshold for: ", 16, rank(x), rank(y)),  # 15.5 goes to the even neighbour
  threshold_lines("XY datapoints threshold for: ", 21, x, y),
  distance_lines(x, y)))
compare("ranks_mtcars_swapped.txt", numbered(golden("ranks_mtcars_swapped.txt")), c(
  rank_lines(y, x, rank(-y), rank(x)),
  threshold_lines("XY datapoints threshold for: ", 20, y, x),  # 20.5 as well
  distance_lines(y, x)))

# Every fifth row is excluded. Counting by ranks ends at the first of them; by X and Y they count, since their "." is
# a filled cell, but for the last row, which stands behind the last rank and has none.
ties <- read.csv(file.path(here, "../data/datasets/ties.csv"))
out <- seq_len(nrow(ties)) %% 5 == 0
x <- ties$x[!out]; y <- ties$y[!out]
compare("ranks_ties.txt", numbered(golden("ranks_ties.txt")), c(
  rank_lines(x, y, rank(x), rank(y)),
  threshold_lines("Rank threshold for: ", 12, rank(x)[1:4], rank(y)[1:4]),
  threshold_lines("XY datapoints threshold for: ", 4, ties$x[1:39], ties$y[1:39]),
  distance_lines(x, y)))
columns <- rep(". .", nrow(ties))
columns[!out] <- paste(rank(x), rank(y))
columns[40] <- " "
compare("ranks_ties_columns.txt", golden("ranks_ties_columns.txt"), columns)

cat(sprintf("%d of %d derived lines stand in the golden texts\n", agreed, derived))
if (agreed < derived) quit(status = 1)
