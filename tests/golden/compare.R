# Derives the numbers of compare_*.txt from the definitions and R's own routines: every line that has a number.
# AIC is R's own of the regressions of Y on X, moved by the report's rounding of 2 pi.

source(file.path(dirname(sub("^--file=", "", grep("^--file=", commandArgs(FALSE), value = TRUE))), "derive.R"))
data <- read.csv(file.path(here, "..", "data", "mtcars_models.csv"))

centred <- function(text, width) {
  left <- (width - nchar(text)) %/% 2
  paste0(strrep(" ", left), text, strrep(" ", width - nchar(text) - left))
}

# Lin (1989, 2000), SDs of divisor n.
concordance <- function(x, y, r, n) {
  sx <- sqrt(var(x) * (n - 1) / n); sy <- sqrt(var(y) * (n - 1) / n)
  v <- sy / sx; u2 <- (mean(y) - mean(x))^2 / (sx * sy)
  Cb <- 2 / (v + 1 / v + u2); rc <- r * Cb
  se <- sqrt(((1 - r^2) * Cb^2 * (1 - rc^2) + 2 * rc^2 * Cb * (1 - rc) * u2 - rc^2 * Cb^2 * u2^2 / 2) / (n - 2))
  list(Cb = Cb, rc = rc, P = 2 * pnorm(-abs(rc / se)))
}

# The observations' moments are those of the first model for all models.
adequacy <- function(x, y, y1) {
  n <- length(y)
  fit <- lm(y ~ x); sse <- sum(residuals(fit)^2); r2 <- cor(x, y)^2
  spread <- sum((y - mean(y1))^2)
  own <- concordance(x, y1, sqrt(r2), n)
  criteria <- if (n < 4) c(0, 0, 0) else {
    aic <- AIC(fit) + n * (log(6.283186) - log(2 * pi))
    c(aic, aic + 24 / (n - 4), 24 / (n - 4) + n * log(sse / n) + 6)
  }
  c(r2, mean((y - x)^2), mean(y - x), 1 - sum((y - x)^2) / spread, spread / sum((x - mean(y1))^2), own$Cb, own$rc,
    criteria)
}

# A row without observation is a pair of zeros, and as many rows are cut off, for each model anew.
pairs_of <- function(models, y) {
  n <- length(y)
  lapply(models, function(x) {
    blank <- is.na(y[1:n])
    pair <- list(x = ifelse(blank, 0, x[1:n]), y = ifelse(blank, 0, y[1:n]))
    n <<- sum(!blank)
    lapply(pair, head, n)
  })
}

derive <- function(models, y, tags, L, S, Ds, Dp, Dc) {
  m <- length(models)
  each <- pairs_of(models, y)
  y1 <- each[[1]]$y
  moments <- function(s) paste0(f(c(mean(s), sd(s), median(s)), L, Ds), collapse = "")
  widths <- c(S, L, L, S, S, S, S, L, L, L)
  decimals <- c(Dc, Ds, Ds, Dc, Dc, Dc, Dc, Dc, Dc, Dc)
  indexes <- t(sapply(each, function(pair) adequacy(pair$x, pair$y, y1)))
  lines <- c(paste0("Obs  : ", moments(y1)),
             sapply(1:m, function(k) paste0(sprintf("%3d", tags[k]), "  : ", moments(each[[k]]$x),
                                            paste0(mapply(f, indexes[k, ], widths, decimals), collapse = ""))))
  rank <- cbind(-indexes[, 1], indexes[, 2], abs(indexes[, 3]), -indexes[, 4], abs(abs(indexes[, 5]) - 1),
                -indexes[, 6], -indexes[, 7], indexes[, 8:10])
  lines <- c(lines, paste0("Best :", strrep(" ", 3 * L),
                           paste0(sprintf("%*d", widths, apply(rank, 2, which.min)), collapse = "")))

  n <- length(each[[m]]$y)
  obs <- head(y, n); x <- lapply(models, head, n)
  triangle <- function(width, labels, dashes, cell) {
    c(paste0(strrep(" ", 13), paste0(sapply(tags, centred, width), collapse = "")),
      unlist(lapply(1:(m - 1), function(i) {
        cells <- sapply((i + 1):m, function(j) cell(i, j))
        sapply(seq_along(labels), function(k) {
          diagonal <- if (k == 1 || dashes) centred("-----", width) else strrep(" ", width)
          paste0(if (k == 1) centred(as.character(tags[i]), 3) else "   ", labels[k], strrep(" ", width * (i - 1)),
                 diagonal, paste0(cells[k, ], collapse = ""))
        })
      })))
  }
  lines <- c(lines, triangle(8, c(" r      : ", " P-value: ", " Cb     : ", " CCC    : ", " P-value: "), TRUE, function(i, j) {
    same <- identical(x[[i]], x[[j]])
    r <- if (same) 1 else cor(x[[i]], x[[j]])
    c1 <- concordance(x[[j]], x[[i]], r, n)
    exact <- abs(abs(r) - 1) < 1e-14  # R's own test divides by what rounding leaves
    pr <- if (exact) 0 else cor.test(x[[i]], x[[j]])$p.value
    c(f(r, 8, Dc), p(pr, 8, Dp), f(c1$Cb, 8, Dc), f(c1$rc, 8, Dc), p(if (same) 0 else c1$P, 8, Dp))
  }))
  lines <- c(lines, triangle(12, c(" Mean   : ", " SE     : ", " P-value: "), TRUE, function(i, j) {
    d <- (obs - x[[i]])^2 - (obs - x[[j]])^2
    se <- sd(d) / sqrt(n)
    c(f(mean(d), 12, Ds), f(se, 12, Ds), p(if (se == 0) 1 else t.test(d)$p.value, 12, Dp))
  }))
  lines <- c(lines, triangle(8, c(" Corr   : ", " P-value: "), FALSE, function(i, j) {
    if (identical(x[[i]], x[[j]])) return(c(f(1, 8, Dc), p(0, 8, Dp)))
    test <- cor.test(obs - x[[i]], obs - x[[j]])
    c(f(unname(test$estimate), 8, Dc), p(test$p.value, 8, Dp))
  }))
  # The differences are those of R's AIC where both models have as many rows.
  delta <- function(i, j) {
    d <- indexes[j, 10] - indexes[i, 10]
    if (length(each[[i]]$y) == length(each[[j]]$y)) {
      r <- AIC(lm(y ~ x, each[[j]])) - AIC(lm(y ~ x, each[[i]]))
      stopifnot(abs(d - r) < 1e-9)
    }
    d
  }
  lines <- c(lines, triangle(8, c(" DAIC   : ", " P-value: "), FALSE, function(i, j) {
    d <- delta(i, j)
    c(f(d, 8, Dc), p(plogis(-d / 2), 8, Dp))
  }))
  for (i in 1:(m - 1)) for (j in (i + 1):m) {
    d <- delta(i, j)
    ratio <- exp(abs(d) / 2)
    lines <- c(lines, paste0(".Model ", sprintf("%2d", if (d >= 0) i else j), " is ",
                             if (ratio <= 9999) f(ratio, 6, 1) else ">10000",
                             " times more likely to be correct than model ", sprintf("%2d", if (d >= 0) j else i)))
  }
  lines
}

numbered <- "^(Obs  :|  *[0-9]+  : |Best :| *[0-9 ]* (r|P-value|Cb|CCC|Mean|SE|Corr|DAIC) *: | {13,}[0-9 ]+$|\\.Model  ?[0-9])"
check <- function(name, ...) compare(name, derive(...), grep(numbered, golden(name), value = TRUE))

with(data, {
  check("compare_two.txt", list(wt_hp, against), y, 2:3, 12, 9, 4, 3, 2)
  check("compare_three.txt", list(wt_hp, wt, hp), y, 1:3, 12, 9, 4, 3, 2)
  check("compare_five.txt", list(hp, wt_hp, wt_hp, against, wt), y, 1:5, 10, 6, 2, 20, 3)
  check("compare_blank.txt", list(wt[1:8], hp[1:8]), replace(y[1:8], 7, NA), 1:2, 12, 9, 4, 3, 2)
})
finish()
