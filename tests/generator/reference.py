"""Where the numbers of these tests come from: Python 3.11, its standard library alone."""
from itertools import islice
from math import erfc, exp, expm1, log, log1p, sqrt
from statistics import NormalDist
import sys

z = NormalDist().inv_cdf


def phi(x):
    return erfc(-x / sqrt(2)) / 2


# The parameter t at which pairs with normal margins have the correlation r, by Hoeffding's formula:
# 1 - r = 2 * integral over y < x of v - C(u, v), u = Phi(x), v = Phi(y), with ln(x - y) in place of y.
def frank_gap(u, v, t):
    if t < 1:
        return v + log1p(expm1(-t * u) * expm1(-t * v) / expm1(-t)) / t
    return log1p((exp(-t) - exp(-t * u) + exp(-t * (u - v)) - exp(-t * (1 - v))) / -expm1(-t)) / t


def clayton_gap(u, v, t):
    return -v * expm1(-log1p((v / u) ** t - v ** t) / t)


def correlation(gap, t, step):
    total = 0
    for i in range(round(-9 / step), round(9 / step) + 1):
        x = i * step
        for j in range(round(-26 / step), round(3.4 / step) + 1):
            s = exp(j * step)
            if x - s > -9:
                total += s * gap(phi(x), phi(x - s), t)
    return 1 - 2 * total * step * step


def parameter(gap, r, start):
    """The root by secants in ln t."""
    (t, error), (t1, error1) = ((s, correlation(gap, exp(s), 1 / 16) - r) for s in (log(start), log(start) + 0.01))
    while abs(error1) > 1e-13:
        t, t1, error = t1, t1 - error1 * (t1 - t) / (error1 - error), error1
        error1 = correlation(gap, exp(t1), 1 / 16) - r
    return exp(t1)


# The first pairs of a seed.
def mersenne_twister(seed):
    """The 64-bit generator of Nishimura (2000), ACM TOMACS 10, 348-357."""
    mask = 2 ** 64 - 1
    state = [seed]
    for i in range(1, 312):
        state.append((6364136223846793005 * (state[-1] ^ state[-1] >> 62) + i) & mask)
    while True:
        for i in range(312):
            x = state[i] & ~0x7FFFFFFF & mask | state[(i + 1) % 312] & 0x7FFFFFFF
            state[i] = state[(i + 156) % 312] ^ x >> 1 ^ (0xB5026F5AA96619E9 if x & 1 else 0)
        for x in state:
            x ^= x >> 29 & 0x5555555555555555
            x ^= x << 17 & 0x71D67FFFEDA60000
            x ^= x << 37 & 0xFFF7EEE000000000
            yield x ^ x >> 43


def frank_slope(u, w, t):
    return exp(-t * u) * expm1(-t * w) / (expm1(-t) + expm1(-t * u) * expm1(-t * w))


def clayton_slope(u, w, t):
    return u ** (-t - 1) * (u ** -t + w ** -t - 1) ** (-1 / t - 1)


def partner(slope, u, v, t):
    low, high = 1e-16, 1.0
    for _ in range(60):
        middle = (low + high) / 2
        low, high = (middle, high) if slope(u, middle, t) < v else (low, middle)
    return low


if __name__ == "__main__":
    assert next(islice(mersenne_twister(5489), 9999, None)) == 9981545732273789042  # the C++ standard's check
    if len(sys.argv) == 3:  # a seed and a number of draws: these in [0, 1), for tests/golden/difference.R
        print(*(repr((x >> 11) / 2 ** 53) for x in islice(mersenne_twister(int(sys.argv[1])), int(sys.argv[2]))), sep="\n")
        sys.exit()
    half = {}
    for name, gap, slope, starts in (("frank", frank_gap, frank_slope, (0.0063, 0.63, 3.7, 16, 93, 600)),
                                     ("clayton", clayton_gap, clayton_slope, (0.0012, 0.13, 1, 6.8, 49, 330))):
        for r, start in zip((0.001, 0.1, 0.5, 0.9, 0.99, 0.999), starts):
            t = parameter(gap, r, start)
            print(f"{name} r = {r}: t = {t:.11g}, finer steps give r = {correlation(gap, t, 1 / 32):.12g}", flush=True)
            half[name] = (slope, t) if r == 0.5 else half.get(name)

    for name in ("frank", "clayton", "harlow"):  # N = 3, means -5 and 20, variances 4 and 9, r = 0.5
        draws = mersenne_twister(20240611)
        uniform = lambda: ((next(draws) >> 12) + 0.5) / 2 ** 52
        for i in range(3):
            u, v = uniform(), uniform()
            x = -5 + 2 * z(u)
            if name == "harlow":
                y = 20 + 0.75 * (x + 5) + sqrt(0.75 * 3 * 9 / (3 - 2)) * z(v)
            else:
                y = 20 + 3 * z(partner(half[name][0], u, v, half[name][1]))
            print(f"{name} {x:.14g} {y:.14g}")
