# SPDX-FileCopyrightText: The Morvane developers
"""Reference calculation of the Management Item Review (建設業法 第27条の23).

Company reads a case file and scores it as an entry of the morvane-score JSON.
It shares no code with the engine and is built for legibility: the score of a
firm is found by replaying what the screens do until nothing changes any more.
"""

import calendar
import copy
import csv
import datetime
import fractions
import functools
import json
import math
import pathlib
import struct
import types

HERE = pathlib.Path(__file__).resolve().parent
STORES = HERE.parent.parent / "stores"

LINES = 34           # work types per period
SCORED = 32          # lines 0 to 31 carry scores
COMBINED = 32        # と・解: never holds a figure
OTHER = 33           # その他: amounts and averages, no scores
SUB_LINES = (1, 6, 13)   # parts of 010, 050 and 110, left out of the totals

OWN = ("完工高前々期", "完工高前期", "完工高基準")
OWN_STORED = ("完工高前々期", "完工高前期", "完工高前平均", "完工高基準", "完工高平均")
PRIME = tuple("元請" + c for c in OWN)
PRIME_STORED = tuple("元請" + c for c in OWN_STORED)
AVERAGES = ("完工高平均", "元請完工高平均")
SCORES = ("評点X1", "評点Z1", "評点Z2", "評点Z", "総合評点P")
# The twenty columns of a scenario. 技術者6 came later and is in no copy.
FAMILY = OWN_STORED + PRIME_STORED + SCORES + tuple("技術者%d" % kind for kind in range(1, 6))
SIXTH = "技術者6"
NONE = (None,) * 5   # of the columns that a line without an entry keeps empty

PREFIX = {"genjo": "", "kaizen": "改0", "1": "改1", "2": "改2", "3": "改3"}
ELEMENT_COLUMN = {"genjo": "現状", "kaizen": "改善後0"}


class ScoreError(Exception):
    """The score of this company cannot be formed."""


def f32(x):
    """Store a value in single precision."""
    try:
        return struct.unpack("<f", struct.pack("<f", x))[0]
    except OverflowError:
        raise ScoreError("単精度の桁あふれ") from None


def within(bits, n):
    if not -2**(bits - 1) <= n < 2**(bits - 1):
        raise ScoreError("%dビット整数の桁あふれ: %s" % (bits, n))
    return n


def add(bits, *terms):
    total = 0
    for t in terms:
        total = within(bits, total + within(bits, t))
    return total


i16, i32, add16, add32 = (functools.partial(f, bits) for f in (within, add) for bits in (16, 32))


def thousands(yen):
    """Yen to thousand yen, cut toward zero: 999 and -999 yen are both 0."""
    return 0 if yen is None else i32(-(-yen // 1000) if yen < 0 else yen // 1000)


def half(a, b):
    """Floor of the mean."""
    return add32(a, b) // 2


def read_rows(path, delimiter=","):
    with open(path, encoding="utf-8", newline="") as f:
        return list(csv.DictReader((line for line in f if not line.startswith("#")), delimiter=delimiter))


def load_chart(edition):
    """The lines of the delivered chart by code; -1 is true there."""
    return {int(row["建設科目CD"]): types.SimpleNamespace(
                code=int(row["建設科目CD"]), klass=row["科目分類識別"], summed=row["集計識別"] == "-1",
                minus=row["内部処理正負"] == "1", debit=row["貸借正負"] == "1", entered=row["金額編集識別"] == "-1",
                hidden={True: row["法人非表示識別"] == "-1", False: row["個人非表示識別"] == "-1"})
            for row in read_rows(STORES / ("chart_%s.tsv" % edition), "\t")}


def load_tables():
    tables = {}
    for row in read_rows(HERE / "tables.csv"):
        band = tuple(int(row[k]) for k in ("from", "mul", "div", "add"))
        tables.setdefault(row["table"], []).insert(0, band)     # the highest first
    return tables


CHARTS = {edition: load_chart(edition) for edition in ("13", "01")}
TABLES = load_tables()


def table_points(table, value):
    """Points by a statutory score table: linear bands over integers from 0 on, constant at the top."""
    return next((i16(i32(value * mul) // div + plus) for low, mul, div, plus in TABLES[table] if value >= low), 0)


def step(value, steps, otherwise=0):
    """What stands beside the first of the falling bounds that a value reaches."""
    return next((points for bound, points in steps if value >= bound), otherwise)


class Statement:
    """The account rows of one period, one mapping per amount column."""

    def __init__(self, edition, corporation):
        self.edition, self.corporation = edition, corporation
        self.chart = CHARTS[edition]
        self.amount, self.debit, self.credit, self.balance = (dict.fromkeys(self.chart) for _ in range(4))
        self.saved = {}      # balances of the saved scenarios that have a journal, by number

    def after_journal(self, debit, credit):
        """Balances after an improvement journal with their totals; every line counts."""
        balance = {}
        for code, account in self.chart.items():
            amount, entries = self.amount[code] or 0, (debit.get(code) or 0) - (credit.get(code) or 0)
            balance[code] = entries - amount if code == 273 else amount + (entries if account.debit else -entries)
        self.form_totals(balance, shown_only=False)
        return balance

    def _class_sums(self, column, shown_only):
        sums = {}
        for code, account in self.chart.items():
            v = column[code] or 0
            if account.summed and not (shown_only and account.hidden[self.corporation]):
                sums[account.klass] = sums.get(account.klass, 0) + (-v if account.minus else v)
        return sums

    def form_totals(self, column, shown_only):
        """The totals that a score or a later period reads."""
        north = self.edition == "01"

        # Totals that are themselves lines of another class come first.
        sums = self._class_sums(column, shown_only)
        if north:
            column[534] = column[579] = sums.get("Kgu", 0)
        column[726] = sums.get("SguH", 0)
        column[702] = column[728] = column[726] + sums.get("SguT", 0)

        sums = self._class_sums(column, shown_only)

        def c(*classes):
            return sum(sums.get(klass, 0) for klass in classes)

        # Balance sheet: equity and retained earnings are the remainders that make it balance.
        column.update({179: c("Yks", "Mks", "Tst"), 229: c("Rdf"), 248: c("Ktf")})
        column[399] = column[179] + (c("Rds", "Kns") if self.corporation else c("Rds"))
        column[319] = column[399] - column[229] - column[248]
        if self.corporation:
            column[289] = column[319] - c("Hjk", "Jsg", "Hks", "Skabu")

        # Income statement.
        sales = ("Kku", "Knu") if north else ("Kku_u", "Knu_u")
        column[411 if north else 413] = side = c("KugG", "KugT")
        column[419] = c(*sales) - c("Kkg") - side
        if not north:
            column[402] = (column[400] or 0) + (column[401] or 0)
        column[469] = column[419] - c("Ipk")
        column[489] = column[469] + c("Egs") - c("Egh")
        column[519] = column[489] + c("Tbr") - c("Tbs") - c("SesT")
        column[529] = column[489]

    def take_prior(self, earlier, years_back, given):
        """Fill the prior-period lines that were not given from an earlier period. Allowance and depreciation come from
        the lines of the national form on both editions; a Hokkaido firm keys these in by hand.
        """
        shared = (101, 103, 106, 107, 114, 177, 200, 201, 210 if earlier.edition == "01" else 209)
        own = (319, 399, 436, 469, 489, 511, 536, 724, 729) if years_back == 1 else ()
        for code, source in enumerate(shared + own, 820 if years_back == 1 else 800):
            if code not in given:
                v = earlier.amount.get(source) or 0
                self.amount[code] = v
                for balance in (self.balance, *self.saved.values()):
                    balance[code] = v


def account_sums(column):
    """The reader of a column: accounts cut to thousand yen and added."""
    return lambda *codes: add32(*(thousands(column.get(code)) for code in codes))


# The eight indicators: worst, best, weight in the points.
INDICATORS = ((5.1, -0.3, -0.4650), (18.0, 0.9, -0.0508), (6.5, 63.6, 0.0264), (-8.5, 5.1, 0.0277), (-76.5, 350.0, 0.0011),
              (-68.6, 68.5, 0.0089), (-10.0, 15.0, 0.0818), (-3.0, 100.0, 0.0172))


def points_y(column, edition, corporation):
    """Y (経営状況評点) with its eight indicators, rates and points A."""
    k, north = account_sums(column), edition == "01"
    equity, assets = k(319), k(399)
    sales = k(400, 410) if north else k(402)
    ordinary = k(489)

    # Allowances, notes and receivables, payables, work and materials, advances: the period before last, the last
    # one, this one.
    levels = [(k(804, 805), k(824, 825), k(115 if north else 114, 177)), (k(800, 801), k(820, 821), k(101, 103)),
              (k(806, 807), k(826, 827), k(200, 201)), (k(802, 803), k(822, 823), k(106, 107)),
              (k(808), k(828), k(210 if north else 209))]

    def flow(profit, depreciation, tax, year):
        moves = [add32(level[year], -level[year + 1]) for level in levels]
        return add32(profit, depreciation, -tax, -moves[0], moves[1], -moves[2], moves[3], -moves[4])

    flows = add32(flow(k(833), k(831, 835, 836, 837), k(834), 0),
                  flow(ordinary, k(436, 552 if north else 536, 724, 729), k(511), 1))

    def percent(num, den, without):
        return f32(math.floor(num / den * 100000 + 0.501) / 100000 * 100) if den else without

    def thousandths(v):
        return f32(math.floor(v * 1000 + 0.501) / 1000)

    debt = add32(k(229), k(248))
    formed = [percent(add32(k(480), -k(470)), sales, 5.1),
              thousandths(debt / (sales / 12.0)) if sales else 18.0,
              percent(k(419), max(30000.0, f32(add32(k(830), assets) / 2)), None),
              percent(ordinary, sales, -8.5),
              percent(equity, k(179), -76.5),
              percent(equity, assets, 0.0),     # without capital 0, not the lower limit
              thousandths(f32(flows / 2) / 100000),
              thousandths((k(289) if corporation else equity) / 100000)]
    x = [max(f32(min(bounds)), min(f32(max(bounds)), v)) for v, (*bounds, _) in zip(formed, INDICATORS)]
    rates = [f32(abs((v - worst) / (best - worst)) * 100) for v, (worst, best, _) in zip(x, INDICATORS)]
    s = sum(weight * v for v, (_, _, weight) in zip(x, INDICATORS)) + 0.1906
    a = f32(math.floor(s * 100 + 0.501) / 100)
    return {"X": list(map(f32, x)), "ritu": rates, "A": a, "Y": max(0, i16(math.floor(167.3 * a + 583 + 0.501)))}


def twelve(column, edition, corporation):
    """The adviser's twelve indicators, percent or months, in thousandths rounded half up."""

    def k(*codes):
        return sum(-thousands(column.get(-code)) if code < 0 else thousands(column.get(code)) for code in codes)

    north = edition == "01"
    sales = k(400, 410) if north else k(402)
    advances = 210 if north else 209
    mean_assets = fractions.Fraction(f32((k(830) + k(399)) / 2))
    depreciation = (436, 552 if north else 536, 724, 729)
    allowance = (115 if north else 114, 177, -824, -825)
    percent, months = 100, 12
    rows = ((k(469), sales, percent), (k(489), mean_assets, percent),
            (k(519 if corporation else 529, *depreciation, *allowance), sales, percent),
            (k(101, 103, 106, -200, -201, -advances), sales, months),
            (k(101, 103, 106, -advances), k(400, 106), percent), (k(101, 103), k(400), months),
            (k(319), k(399), percent), (k(203, 230, 231), sales, months), (k(480, -470), sales, percent),
            (k(319), k(179), percent), (k(319, 248), k(179), percent),
            (sales - k(530, 532, 533, 411 if north else 413), k(179), percent))
    half_up = fractions.Fraction(1, 2)
    return {str(21 + i): math.floor(fractions.Fraction(above) / below * factor * 1000 + half_up) / 1000
            if below else 0.0 for i, (above, below, factor) in enumerate(rows)}


def points_x2(column, edition, basis):
    """X2 from equity and the mean profit before interest, tax and depreciation."""
    k = account_sums(column)
    equity, equity_before = k(319), k(829)
    profit = add32(k(469), k(436, 724, 729, 552 if edition == "01" else 536))
    profit_before = add32(k(832), k(831, 835, 836, 837))
    jiko = equity if basis == 1 else half(equity, equity_before)
    rieki = half(profit, profit_before)
    x2_1 = table_points("X2_1", max(0, jiko))
    x2_2 = table_points("X2_2", max(0, rieki))
    return {"Jiko": jiko, "Jiko_Used": max(0, jiko), "Rieki": rieki, "Rieki_Used": max(0, rieki),
            "X2_1": x2_1, "X2_2": x2_2, "X2": max(454, add16(x2_1, x2_2) // 2)}


def points_w2(years, saisei):
    return (60 if years < 0 else min(60, max(0, years - 5) * 2)) - (60 if saisei == 1 else 0)


# From which completed work on how many accountants are needed for 10, 8, 6, 4 and 2 points.
ACCOUNTANTS = ((60000000, (13.6, 10.8, 7.2, 5.2, 2.8)), (15000000, (8.8, 6.8, 4.8, 2.8, 1.6)),
               (4000000, (4.4, 3.2, 2.4, 1.2, 0.8)), (1000000, (2.4, 1.6, 1.2, 0.8, 0.4)),
               (100000, (1.2, 0.8, 0.4)), (0, (0.4,)))


def points_w5(audit, work, first_class, second_class):
    """Accounting: audit points and staff points by the size of the completed work."""
    staff = f32(math.floor((second_class * 0.4 + first_class) * 1000 + 0.09) / 1000)
    needed = step(work, ACCOUNTANTS, ACCOUNTANTS[0][1])
    return {1: 2, 2: 10, 3: 20}.get(audit, 0) + step(staff, zip(map(f32, needed), range(10, 0, -2)))


def points_w6(audit, cost_one, cost_two):
    """Research cost counts only with an accounting auditor."""
    if audit != 3:
        return 0
    a = half(cost_one, cost_two)
    return step(a, ((10000000, 25), (7500000, 24), (5000000, 23), (3000000, 22), (2000000, 21),
                    (100000, a // 100000 + 1), (50000, 1)))


def points_w7(machines):
    return step(machines, ((14, 15), (12, 14), (10, 13), (8, 12), (1, machines + 4)))


def points_w8(eco, iso9001, iso14001):
    if iso14001 not in (0, 1):
        return 0
    return (5 if iso9001 == 1 else 0) + (5 if iso14001 == 1 else 3 if eco == 1 else 0)


def points_w10(cpd, engineers, raised, skilled, deducted):
    """Knowledge and skill. Each intermediate is held in single precision."""
    weight_one = weight_two = 0.0
    cpd_points = skill_points = 0
    if engineers != 0 and cpd != 0:
        weight_one = f32(engineers / add32(engineers, skilled))
        c = f32(cpd / engineers)
        # Exactly 30 units per head is the full mark; above it the table has no row.
        cpd_points = max(0, math.floor(c / 3)) if c <= 30 else 0
    if skilled != 0 and raised != 0:
        weight_two = f32(skilled / add32(engineers, skilled))
        rest = add32(skilled, -deducted)
        r = f32(deducted / rest) if rest else 0.0
        skill_points = sum(1 for n in range(1, 11) if r >= f32(n * 15 / 1000))
    v = f32(cpd_points * weight_one + skill_points * weight_two)
    return math.floor(v) if 0 <= v <= 10 else 0


def points_wlb(jyosei, jisedai, youth):
    return max({1: 5, 2: 4, 3: 3, 4: 2}.get(jyosei, 0), {1: 5, 2: 3, 3: 3}.get(jisedai, 0), {1: 4}.get(youth, 0))


def points_rireki(kind):
    return {1: 10, 2: 5, 3: 5, 4: 15, 5: 10}.get(kind, 0)


def total_w_2008(parts):
    return max(0, i16(add16(*parts) * 10))


def total_w_2011(parts, end_date):
    t = i16(add16(*parts) * 10)
    per_mille = 875 if end_date >= datetime.date(2023, 8, 14) else 950
    w = abs(t) * per_mille // 1000
    return i16(-w if t < 0 else w)


def averages(years, a, b, c):
    """Of the period before last, the last and the base one the adopted average and previous figure, and both averages."""
    def mean(x, y):
        return (add32(x, y) + 1) // 2

    two, previous = mean(c, b), mean(b, a)
    three = (2 * add32(c, i32(2 * previous)) + 3) // 6
    return (two, b, two, three) if years == 2 else (three, previous, two, three)


# Factors held in single precision, so that a whole result is not lost to rounding.
F08, F02, F015 = f32(0.8), f32(0.2), f32(0.15)


def points_z(z1, z2):
    return max(450, i16(math.floor(z1 * F08 + z2 * F02)))


def points_p(x1, x2, y, z, w):
    return i16(math.floor(x1 * 0.25 + x2 * F015 + y * F02 + w * F015 + z * 0.25 + 0.501))


class Desk:
    """One scenario of one period: what is stored, and the screens that rework it."""

    def __init__(self, edition, law, column, y, elements, lines, end_date, current):
        self.current = current       # the current figures, not a scenario
        self.edition, self.law, self.column, self.y, self.end_date = edition, law, column, y, end_date
        self.elements = elements     # 要素CD -> figure of this scenario's column
        self.lines = lines           # per 工種CD: unprefixed column -> figure
        self.x2 = None

    # Readers. A figure above its limit is taken as not entered.
    LIMITS = {101: 2, 102: 2, 103: 2, 104: 2, 105: 2, 106: 2, 111: 200, 121: 1, 131: 2}

    def element(self, code):
        v = i32(self.elements.get(code) or 0)
        return 0 if v > self.LIMITS.get(code, v) else v

    def score(self, code):
        return i16(self.element(code))

    def basis(self):
        return self.element(1) or 1

    def years(self):
        return self.element(201) or 2

    def settle(self):
        for _ in range(100):
            before = (dict(self.elements), [dict(line) for line in self.lines])
            self.social_screen()
            self.engineer_screen()
            self.work_screen()
            if not self.current:
                self.form_p_anew(self.score(200))
            if before == (self.elements, self.lines):
                return
        raise ScoreError("計算が収束しません")

    def compute_x2(self):
        self.x2 = points_x2(self.column, self.edition, self.basis())

    def social_screen(self):
        """Opening and closing the X2/W screen of the law year."""
        e, law, read = self.elements, self.law, self.element
        self.compute_x2()
        e[1] = self.basis()

        private = (103, 104, 105) if law < 3 else (104, 105, 106)
        insured = range(101, private[0])
        for code in (*insured, *private, 111, 121, 131, 141, 142, 143, 151, 152):
            e[code] = read(code)
        missing = sum(e[code] == 0 for code in insured)
        joined = sum(e[code] == 1 for code in private)
        w1 = joined * 15 - missing * (30 if law < 3 else 40)

        if law >= 4:
            wlb = points_wlb(read(235), read(236), read(237))
            rireki = points_rireki(read(238))
            # Young engineers and knowledge count as the last pass left them.
            w1 = add16(w1, self.score(224), self.score(227), self.score(233), wlb, rireki)
            e[240], e[241] = wlb, rireki

        w2 = points_w2(read(111), read(211) if law >= 2 else 0)

        w7 = w8 = 0
        if law >= 2:
            for code in (211, 212, 214, 215):
                e[code] = read(code)
            machines = points_w7(read(212))
            # From 2012 on the total takes the machine score that came with the screen.
            w7 = machines if law == 2 else self.score(213)
            w8 = points_w8(read(239) if law >= 4 else 0, read(214), read(215))
            e[213], e[216] = machines, w8

        if law >= 4:
            e[233] = points_w10(read(228), read(229), read(230), read(231), read(232))
            for young, needed in ((222, 15), (225, 1)) if read(221) != 0 else ():
                e[young + 1] = math.floor(read(young) / read(221) * 100)
                e[young + 2] = 1 if e[young + 1] >= needed else 0

        w3 = 20 if read(121) == 1 else 0
        w4 = {1: -15, 2: -30}.get(read(131), 0)
        kind = read(201)
        work = 0 if kind == 0 else read(202) if kind == 2 else read(203)
        w5 = points_w5(read(141), work, read(142), read(143))
        w6 = points_w6(read(141), read(151), read(152))

        if law == 1:
            w = total_w_2008((w1, w2, w3, w4, w5, w6))
        else:
            w = total_w_2011((w1, w2, w3, w4, w5, w6, w7, w8), self.end_date)
        e.update({100: w1, 110: w2, 120: w3, 130: w4, 140: w5, 150: w6, 200: w})

        self.form_p_anew(w)

    def averaged(self, names):
        """The amounts of each line with the previous and the adopted one, and the totals of all that are no part."""
        found, sums = [], [0] * 6
        for index, line in enumerate(self.lines):
            a, b, c = (i32(line.get(n) or 0) for n in names)
            average, previous, two, three = averages(self.years(), a, b, c)
            if index not in SUB_LINES:
                sums = [add32(s, v) for s, v in zip(sums, (a, b, c, previous, two, three))]
            found.append((a, b, previous, c, average))
        return found, sums

    def p(self, x1, z, w):
        return points_p(x1 or 0, self.x2["X2"], self.y, z or 0, w)

    @staticmethod
    def has(line, names):
        return any(line.get(n) is not None for n in names)

    def engineer_screen(self):
        """Opening and closing the screen of engineers and prime-contract work."""
        self.compute_x2()
        w = self.score(200)
        for index, (line, prime) in enumerate(zip(self.lines, self.averaged(PRIME)[0])):
            z1 = table_points("Z1", i32(sum((line.get("技術者%d" % n) or 0) * weight
                                            for n, weight in ((1, 6), (2, 5), (3, 3), (4, 2), (5, 1), (6, 4)))))
            z2 = table_points("Z2A" if self.law < 2 else "Z2B", prime[-1])
            z = points_z(z1, z2)
            p = self.p(line.get("評点X1"), z, w)
            if index != COMBINED:
                line.update(zip(PRIME_STORED, prime if self.has(line, PRIME) else NONE))
            if index < SCORED:
                line.update({"評点Z1": z1, "評点Z2": z2, "評点Z": z, "総合評点P": p})

    def work_screen(self):
        """Opening and closing the screen of completed work."""
        law, e = self.law, self.elements
        self.compute_x2()
        years = self.years()
        works, (*_, two, three) = self.averaged(OWN)
        w5 = points_w5(self.element(141), two if years == 2 else three, self.element(142), self.element(143))
        if law == 1:
            w2, w7, w8 = self.score(110), 0, 0
        else:
            w2 = points_w2(self.element(111), self.element(211))
            w7, w8 = self.score(213), self.score(216)
        parts = (self.score(100), w2, self.score(120), self.score(130), w5, self.score(150))
        if law == 1:
            total_w_2008(parts)
        # The closing sum of this screen is the one of the later law years, at every law year.
        w = total_w_2011(parts + (w7, w8), self.end_date)

        for index, (line, own, prime) in enumerate(zip(self.lines, works, self.averaged(PRIME)[0])):
            x1 = table_points("X1A" if law < 2 else "X1B", own[-1])
            z1, z2 = line.get("評点Z1") or 0, table_points("Z2A" if law < 2 else "Z2B", prime[-1])
            z = points_z(z1, z2)
            scores = (x1, z1, z2, z, self.p(x1, z, w))
            has_own = self.has(line, OWN)
            if index != COMBINED:
                line.update(zip(OWN_STORED, own if has_own else NONE))
                line.update(zip(PRIME_STORED, prime if self.has(line, PRIME) else NONE))
            if index < SCORED:
                line.update(zip(SCORES, scores if has_own else NONE))
        e.update({201: years, 202: two, 203: three, 140: w5})
        if self.current:     # the improved screen leaves W to the X2/W screen
            e[200] = w

    def form_p_anew(self, w):
        """The overall scores that stand follow X2 and W, as closing the X2/W screen forms them."""
        for line in self.lines[:SCORED]:
            if line.get("総合評点P") is not None:
                line["総合評点P"] = self.p(line.get("評点X1"), line.get("評点Z"), w)

    def result(self):
        e = self.elements

        def line(index):
            """Scores of the lines that have some, averages of all but the combined one."""
            shown = SCORES + AVERAGES if index < SCORED else AVERAGES if index != COMBINED else ()
            figures = self.lines[index]
            return {"工種CD": index, **{n: figures.get(n) if n in shown else None for n in SCORES + AVERAGES}}

        parts = [e[code] for code in (100, 110, 120, 130, 140, 150)]
        parts += [e[213], e[216]] if self.law >= 2 else [0, 0]
        return {"X2": self.x2, "W": {**{"W%d" % n: part for n, part in enumerate(parts, 1)}, "W": e[200]},
                "Kandaka_Gj": [line(i) for i in range(LINES)]}


def add_relief(desk, lines):
    """P of each line had the firm chosen other averages, and which of them are best."""
    chosen = {}
    for letter, (years, basis) in zip("abcd", ((2, 1), (2, 2), (3, 1), (3, 2))):
        other = copy.deepcopy(desk)
        other.elements.update({201: years, 1: basis})
        other.settle()
        if other.law == 1:    # the comparison keeps the closing sum of that law year
            other.elements[200] = total_w_2008([other.element(code) for code in range(100, 151, 10)])
            other.form_p_anew(other.element(200))
        chosen[letter] = [line.get("総合評点P") for line in other.lines]
    for i, line in enumerate(lines):
        p = {letter: scores[i] for letter, scores in chosen.items()}
        line["relief"] = None
        if line["総合評点P"] is not None:
            line["relief"] = {**p, "best": [letter for letter in p if p[letter] == max(p.values())]}


class Company:
    def __init__(self, path):
        with open(path, encoding="utf-8") as f:
            case = json.load(f)
        assert (case["format"], case["version"]) == ("morvane-case", 1), path
        self.edition = case["Tiiki_CD"]
        self.office = case["Jigyo_mas"]
        self.corporation = self.office["法人個人識別"] == 1
        self.periods = {period["決算期"]: period for period in case["periods"]}
        assert list(self.periods) == sorted(self.periods), path
        self.statements = {}     # in their order: one takes from those before it
        for k, period in self.periods.items():
            self.statements[k] = self._statement(k, period)

    def _statement(self, k, period):
        s = Statement(self.edition, self.corporation)
        given = set()
        saved = {slot: ({}, {}) for slot in "123"}
        for key, v in period.get("Ks_Zaihyo", {}).items():
            code = int(key)
            assert s.chart[code].entered, "period %s: account %s takes no amount" % (k, key)
            entry = v if isinstance(v, dict) else {"金額": v}
            s.amount[code], s.debit[code], s.credit[code] = map(entry.get, ("金額", "借方", "貸方"))
            for slot, sides in saved.items():
                for name, side in zip(("借方", "貸方"), sides):
                    side.update({code: entry[n] for n in (name + slot,) if n in entry})
            if s.amount[code] is not None:
                given.add(code)
        s.form_totals(s.amount, shown_only=True)     # lines that the firm type does not have stay out
        s.balance = s.after_journal(s.debit, s.credit)
        s.saved = {slot: s.after_journal(*sides) for slot, sides in saved.items() if any(sides)}
        for back in (1, 2):
            if k - back in self.statements:
                s.take_prior(self.statements[k - back], back, given)
        return s

    def end_date(self, k):
        """End of period k; the register holds the Reiwa year of the period in hand."""
        o = self.office
        year, month, day = o["決算期終了年"], o["決算期終了月"], o["決算期終了日"]

        def last(of):    # of Heisei or of Reiwa, whichever is longer
            return max(calendar.monthrange(base + of, month)[1] for base in (1988, 2018))
        if not 1 <= day <= last(year):
            raise ValueError("決算期終了日")
        moved = year + k - o["処理決算期"]
        day = last(moved) if day == last(year) else min(day, last(moved))
        return datetime.date(moved + 2018, month, min(day, calendar.monthrange(moved + 2018, month)[1]))

    def desk(self, k, scenario):
        period, statement = self.periods[k], self.statements[k]
        given = period.get("Kandaka_Gj", {})

        def lines(prefix):
            return [{n: given.get(str(i), {}).get(prefix + n) for n in FAMILY + (SIXTH,)} for i in range(LINES)]

        def elements(column):
            return {int(code): v.get(column) if isinstance(v, dict) else v if column == "現状" else None
                    for code, v in period.get("W_Yoso", {}).items()}

        stored_lines = lines(PREFIX[scenario])
        stored_elements = elements(ELEMENT_COLUMN.get(scenario, "改善後" + scenario))
        if scenario in "123" and not any(Desk.has(line, OWN) for line in stored_lines[:SCORED]):
            raise ScoreError("保存値%s はありません" % scenario)
        if scenario == "kaizen" and not any(Desk.has(line, FAMILY) for line in stored_lines):
            for line, current in zip(stored_lines[:SCORED], lines("")):
                line.update({n: current[n] for n in FAMILY})
            # Of the items only what is blank is filled, from the current ones as import has settled them.
            current = elements("現状")
            if any(v is not None for v in current.values()):
                settled, _ = self.desk(k, "genjo")
                try:
                    settled.settle()
                    current = settled.elements
                except ScoreError:
                    pass     # what cannot be computed stays as it was given
            stored_elements = {code: v if stored_elements.get(code) is None else stored_elements[code]
                               for code, v in current.items()}
        column = {"genjo": statement.amount, "kaizen": statement.balance, **statement.saved}.get(scenario, {})
        y = points_y(column, self.edition, self.corporation)
        desk = Desk(self.edition, period["Simyu_Kubun"], column, y["Y"], stored_elements,
                    stored_lines, self.end_date(k), scenario == "genjo")
        return desk, y

    def score(self, k, scenario):
        k = k or self.office["処理決算期"]
        if k not in self.periods:
            raise ScoreError("決算期 %s のデータがありません" % k)
        try:
            desk, y = self.desk(k, scenario)
            desk.settle()
            lines = desk.result()
            if scenario == "genjo":
                add_relief(desk, lines["Kandaka_Gj"])
        except (ZeroDivisionError, ValueError, OverflowError) as error:
            raise ScoreError(str(error)) from None
        return {"管理No": self.office["管理No"], "事業所名": self.office["事業所名"], "決算期": k,
                "Simyu_Kubun": self.periods[k]["Simyu_Kubun"], "scenario": scenario, "Y": y,
                "XW_Yoso": twelve(desk.column, self.edition, self.corporation), **lines}
