# Derives the numbers of ranks_mtcars.txt, ranks_mtcars_swapped.txt and ranks_ties.txt with R's rank(), cor.test,
# wilcox.test, ecdf and dist, and the rank columns of ranks_ties_columns.txt.

source(file.path(dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE))), "derive.R"))
options(warn = 1)

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
    paste0(label, value, "     H0: ", test, f(statistic), " (", p(probability, 10), ")")
  c(line("Spearman's r : ", f(s$estimate), "r = 0, T-value (P-value)          : ", s$statistic, s$p.value),
    line("D            : ", f(d, 10, 1), "D = 0, Z-value (P-value)          : ", zd, 2 * pnorm(-abs(zd))),
    line("Tau          : ", f(k$estimate), "Tau = 0, Z-value (P-value)        : ", k$statistic, k$p.value),
    line("KS           : ", f(ks), "dX = dY, N-value (P-value)        : ", n / 2, pks),
    line("Mann-Whitney : ", f(wd), "WD = 0, Z-value (1-sided P-value) : ", sign(wd) * qnorm(one, lower.tail = FALSE),
         one))
}

threshold_lines <- function(label, t, x, y) {
  off <- !(x == t & y == t)
  cells <- table(factor(y[off] > t, c(FALSE, TRUE)), factor(x[off] > t, c(FALSE, TRUE)))
  row <- function(name, k) paste0(name, count(cells[k, 1]), " (", f(100 * cells[k, 1] / length(x), 5, 2), ")  ",
                                  count(cells[k, 2]), " (", f(100 * cells[k, 2] / length(x), 5, 2), ")")
  c(paste0(label, f(t)), row("Below      ", 1), row("Above      ", 2),
    if (any(x == y)) paste0("Identical X and Y: ", count(sum(x == y))),
    if (!all(off)) paste0("Identical X, Y and Threshold: ", count(sum(!off))))
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

# The lines with numbers from the rank analysis on: neither comments nor titles.
check <- function(name, lines) {
  text <- golden(name)
  text <- text[seq_along(text) >= grep("^RANK ANALYSIS", text)]
  compare(name, lines, text[grepl("[0-9]", text) & !grepl("^!!|^RANK", text)])
}

x <- predicted; y <- observed
check("ranks_mtcars.txt", c(
  rank_lines(x, y, rank(x), rank(y)),
  threshold_lines("Rank threshold for: ", 16, rank(x), rank(y)),  # 15.5 goes to the even neighbour
  threshold_lines("XY datapoints threshold for: ", 21, x, y),
  distance_lines(x, y)))
check("ranks_mtcars_swapped.txt", c(
  rank_lines(y, x, rank(-y), rank(x)),
  threshold_lines("XY datapoints threshold for: ", 20, y, x),  # 20.5 as well
  distance_lines(y, x)))

# Every fifth row is excluded. Counting by ranks ends at the first of them; by X and Y they count, since their "." is
# a filled cell, but for the last row, which stands behind the last rank and has none.
ties <- read.csv(file.path(here, "../data/datasets/ties.csv"))
out <- seq_len(nrow(ties)) %% 5 == 0
x <- ties$x[!out]; y <- ties$y[!out]
check("ranks_ties.txt", c(
  rank_lines(x, y, rank(x), rank(y)),
  threshold_lines("Rank threshold for: ", 12, rank(x)[1:4], rank(y)[1:4]),
  threshold_lines("XY datapoints threshold for: ", 4, ties$x[1:39], ties$y[1:39]),
  distance_lines(x, y)))
columns <- rep(". .", nrow(ties))
columns[!out] <- paste(rank(x), rank(y))
columns[40] <- " "
compare("ranks_ties_columns.txt", columns)
finish()
