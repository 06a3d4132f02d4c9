# SPDX-FileCopyrightText: The Morvane developers
"""Writes random and adversarial firms as case files.

    generate.py SEED COUNT OUTDIR [13|01]

管理No runs from 1 to COUNT, the files are OUTDIR/NNNNNN.json. The same seed gives the same firms; a firm does not depend
on COUNT. Only entered rows of the chart get amounts.
"""

import calendar
import datetime
import json
import pathlib
import random
import sys

from reference import CHARTS, HERE, OWN, PRIME, read_rows

MAX32 = 2**31 - 1

SCORE_COLUMNS = ("評点X1", "評点Z1", "評点Z2", "評点Z", "総合評点P", "完工高平均", "元請完工高平均")

PRIOR = tuple(range(820, 839))
SECOND_PRIOR = tuple(range(800, 809))

# Limits of the eight indicators: X1, X3, X4, X5, X6 in percent, X2 in months, X7 and X8 in thousand yen.
LIMITS = {1: (5.1, -0.3), 2: (18.0, 0.9), 3: (63.6, 6.5), 4: (5.1, -8.5), 5: (350.0, -76.5), 6: (68.5, -68.6),
          7: (1500000, -1000000), 8: (10000000, -300000)}

STAFF_SIZES = (0, 99999, 100000, 999999, 1000000, 3999999, 4000000, 14999999, 15000000)
RESEARCH = (50000, *range(100000, 2000001, 100000), 3000000, 5000000, 7500000, 10000000)

# Around the day from which the weight of W fell, in Reiwa years.
END_DATES = ((5, 8, 13), (5, 8, 14), (5, 8, 15), (5, 7, 31), (5, 8, 31), (5, 3, 31), (6, 3, 31),
             (7, 3, 31), (7, 12, 31), (8, 6, 30), (6, 8, 13), (6, 8, 14), (4, 9, 30), (30, 3, 31))


def load_edges():
    """Band bounds of each table, and the amounts at which the 32-bit product gives out."""
    edges, holes = {}, {}
    for row in read_rows(HERE / "tables.csv"):
        name, low, mul = row["table"], int(row["from"]), int(row["mul"])
        edges.setdefault(name, []).append(low)
        holes.setdefault(name, [])
        if row["to"] and MAX32 // mul < int(row["to"]):
            holes[name].append((max(low, MAX32 // mul + 1), int(row["to"])))
    return edges, holes


EDGES, HOLES = load_edges()


def in_hole(table, value):
    return any(low <= value <= high for low, high in HOLES[table])


class Firm:
    def __init__(self, seed, number, edition):
        self.rng = random.Random("%s/%s/%s" % (seed, edition, number))
        self.number = number
        self.edition = edition
        self.corporation = self.chance(0.7)
        self.risky = self.chance(0.08)      # may run into the 32-bit limits
        self.scale = int(10 ** self.rng.uniform(3.5, 6.7))   # yearly sales, thousand yen

    def chance(self, p):
        return self.rng.random() < p

    def pick(self, *items):
        return self.rng.choice(items)

    def near(self, value):
        return value + self.pick(-1, 0, 0, 1)

    def edge(self, table):
        """An amount at a band bound of the table, or at the end of what it can compute."""
        choices = EDGES[table] + [low for low, _ in HOLES[table]] + [high for _, high in HOLES[table]]
        for _ in range(40):
            v = self.near(self.rng.choice(choices))
            if self.risky or not in_hole(table, v):
                return v
        return 0

    def yen(self, thousand):
        """Thousand yen as yen; a part below a thousand is cut off by the scores."""
        rest = 0 if self.chance(0.5) else self.pick(1, 499, 500, 999, self.rng.randrange(1000))
        return thousand * 1000 + (rest if thousand > 0 or (rest and thousand == 0 and self.chance(0.5)) else -rest)

    def statement(self, edition_codes):
        kind = self.rng.choices(("plausible", "aimed", "sparse", "wild", "overflow", "empty"),
                                (35, 42, 9, 10, 3 if self.risky else 0, 2))[0]
        return getattr(self, "statement_" + kind)(edition_codes)

    def statement_empty(self, codes):
        return {}

    def statement_sparse(self, codes):
        return {code: self.pick(0, 999, -999, 1000, -1000, 1999, -1999, 29999999, 30000000,
                                self.rng.randrange(-10**9, 10**10))
                for code in self.rng.sample(codes, self.rng.randrange(1, 8))}

    def statement_wild(self, codes):
        out = {}
        for code in codes:
            if self.chance(0.8):
                magnitude = 10 ** self.rng.randrange(2, 10)
                out[code] = self.rng.randrange(-magnitude // 3, magnitude)
        return out

    def statement_plausible(self, codes):
        """Amounts of an ordinary firm: what of its sales is spread at random over which accounts."""
        r, s, north = self.rng, self.scale, self.edition == "01"
        side = s * r.uniform(0, 0.3) if self.chance(0.4) else 0
        cost, assets = s * r.uniform(0.65, 1.02), s * r.uniform(0.4, 1.8)
        debts = assets * r.uniform(0.2, 1.2)
        parts = [
            (s, [400]), (side, [410 if north else 401]),
            (side * r.uniform(0.6, 1.1), [700, 701, 720, 721, 722, 725]), (side * 0.1, [704, 723, 724, 727, 729]),
            (cost * (0.6 if north else 1), [530, 531, 533, 534]), (cost * 0.4, range(540, 559) if north else []),
            (cost * 0.1, [532]), (cost * r.uniform(0, 0.05), [536]),
            (s * r.uniform(0.05, 0.3), range(420, 445)), (s * r.uniform(0, 0.03), [470, 471, 472]),
            (s * r.uniform(0, 0.05), range(480, 485)), (s * r.uniform(0, 0.02), range(490, 495)),
            (s * r.uniform(0, 0.02), range(500, 504)), (s * r.uniform(0, 0.03), [511, 512]),
            (assets * 0.6, range(100, 114)), (assets * r.uniform(0, 0.01), [115 if north else 114]),
            (assets * 0.5, [130, 133, 136, 139, 140, 143, 144]), (assets * 0.1, [131, 134, 137, 141, 145]),
            (assets * 0.05, range(150, 155)), (assets * 0.1, [160, *range(162, 169)]),
            (assets * r.uniform(0, 0.005), [177]), (assets * r.uniform(0, 0.01), range(181, 186)),
            (debts * 0.6, range(200, 218)), (debts * 0.4, range(230, 239))]
        if self.corporation:
            parts += [(s * r.uniform(0.02, 0.3), [250, 251, 260, 268]), (s * r.uniform(0, 0.1), [270, 272, 274]),
                      (s * r.uniform(0, 0.02), [290, 291, 300, 301, 302, 310])]
        else:
            parts += [(s * r.uniform(0.02, 0.5), [250, 251, 273])]
        out = {}
        for total, members in parts:
            members = [code for code in members if code in codes]
            shares = [r.random() ** 3 for _ in members]
            for code, share in zip(members, shares):
                if self.chance(0.9):
                    out[code] = self.yen(int(total * share / (sum(shares) or 1)))
        if self.chance(0.2):
            out[r.choice(codes)] = self.pick(999, -999)
        return out

    def statement_aimed(self, codes):
        """A statement whose totals hit a limit of an indicator or a band bound of X2."""
        r, north = self.rng, self.edition == "01"
        sales = self.pick(0, 1, 1000, 12, 100000, 300000, r.randrange(2, 3000000))
        fixed = self.pick(0, 1, 1000, 100000, r.randrange(1, 2000000))
        assets = self.pick(0, 1, 30000, 60000, 200000, r.randrange(1, 4000000))
        before = self.pick(0, 60000 - assets, assets, r.randrange(0, 4000000))
        equity = r.randrange(-1000000, 3000000)
        retained = r.randrange(-400000, 2000000)
        gross = r.randrange(-200000, 800000)
        ordinary = r.randrange(-200000, 400000)
        received, paid = r.randrange(0, 1000), r.randrange(0, 3000)
        flow = None
        profit = None

        def aim(limit, den):
            return round(limit * den / 100) + self.pick(-1, 0, 0, 1)

        if self.chance(0.15):
            before = 60000 - assets + self.pick(-1, 0, 1, 1, 2)      # mean capital at its floor
        if self.chance(0.15):
            # ratios whose sixth decimal is a 4 with nines behind it, or just a 5
            sales, fixed, assets, before = 200000000, 200000000, 200000000, self.pick(200000000, 0)

            def fine(scale, low, high):
                return r.randrange(low, high) * scale + self.pick(scale // 2 - 1, scale // 2, scale // 2 - 2)

            paid = received + fine(2000, -200, 4000)
            gross = fine(self.pick(1000, 2000), 7000, 60000)
            ordinary = fine(2000, -7000, 5000)
            equity = fine(2000, -60000, 15000)
            if self.chance(0.5):
                sales, assets = 24000000, 40000000
                equity = assets - fine(2000, 5000, 17000)
        targets = r.sample(range(1, 11), r.randrange(1, 5))
        if fixed == 200000000 and not self.risky:
            # at this size the limits of these two lie where the equity table gives out
            targets = [n for n in targets if n not in (5, 6)]
        for target in targets:
            if target == 1:
                paid = received + aim(self.pick(*LIMITS[1]), sales)
            elif target == 3:
                mean = max(30000, (assets + before) // 2)
                gross = aim(self.pick(*LIMITS[3]), mean)
            elif target == 4:
                ordinary = aim(self.pick(*LIMITS[4]), sales)
            elif target == 5:
                equity = aim(self.pick(*LIMITS[5]), fixed)
            elif target == 6:
                equity = aim(self.pick(*LIMITS[6]), assets)
            elif target == 2:
                # liabilities = assets - equity, in months of sales
                equity = assets - round(self.pick(*LIMITS[2]) * sales / 12) + self.pick(-1, 0, 0, 1)
            elif target == 7:
                flow = self.pick(*LIMITS[7], 0) + self.pick(-51, -50, -49, -1, 0, 1, 49, 50, 51)
            elif target == 8:
                retained = self.pick(*LIMITS[8], 0) + self.pick(-51, -50, -49, -1, 0, 1, 49, 50, 51)
            elif target == 9:
                equity = self.edge("X2_1")
                assets = max(assets, equity + r.randrange(0, 1000))
            elif target == 10:
                profit = self.edge("X2_2")

        debts = assets - equity
        current = self.pick(0, debts, debts // 2)
        depreciation = self.pick(0, r.randrange(0, 20000))
        operating = ordinary - received + paid
        t = {100: assets - fixed, 139: fixed, 203: current, 231: debts - current,
             250: equity - retained if self.corporation else equity - r.randrange(0, 1000),
             400: sales, 530: sales - gross, 436: depreciation,
             421: gross - operating - depreciation, 470: received, 480: paid, 830: before}
        if not self.corporation and self.chance(0.3):
            t[273] = r.randrange(0, 100000)
            t[250] += t[273]
        if flow is not None:
            now = ordinary + depreciation
            t[833] = 2 * flow - now + self.pick(0, 0, 1)
            for code in PRIOR[:9] + (831, 834, 835, 836, 837) + SECOND_PRIOR:
                t[code] = 0
        if profit is not None:
            t[832] = 2 * profit - operating - depreciation + self.pick(-1, 0, 1)
            t[831] = t.get(831, self.pick(0, 0, 100))
            t[832] -= t[831]
            t[835] = t[836] = t[837] = 0
        if self.chance(0.5):
            t[829] = self.pick(equity, equity + 1, -equity, 2 * self.edge("X2_1") - equity)
        exact = self.chance(0.7)
        return {code: v * 1000 if exact else self.yen(v) for code, v in t.items() if not (v == 0 and self.chance(0.5))}

    def statement_overflow(self, codes):
        """Amounts at the end of 32 bits of thousand yen."""
        edge = self.pick(MAX32 * 1000 + 999, (MAX32 + 1) * 1000, -(MAX32 + 1) * 1000 - 999,
                         MAX32 * 1000, -(MAX32 + 2) * 1000)
        out = {self.pick(100, 139, 203, 400, 421, 470, 200): edge}
        if self.chance(0.5):
            out[830] = self.pick(0, 1000, -1000, 999)
        if self.chance(0.3):
            out[829] = self.pick(edge, 0, -edge)
        return out

    def prior_block(self, rows, first):
        """Prior-period lines: left out, all given or a part of them."""
        share = self.pick(0, 0, 0.5, 1) if not first else self.pick(0, 0.5, 1, 1)
        size = abs(self.scale)
        for code in PRIOR + SECOND_PRIOR:
            if code in rows or not self.chance(share):
                continue
            low = -size // 5 if code in (829, 832, 833, 838) else 0
            thousand = self.rng.randrange(low, size) if self.chance(0.85) else 0
            rows[code] = self.yen(thousand // self.pick(1, 5, 20))
            if self.chance(0.02):
                rows[code] = self.pick(999, -999)
        if self.chance(0.3):
            rows[901] = self.yen(self.rng.randrange(-1000, 1000))

    def journal(self, rows, codes, slot=""):
        """Entries of the improvement journal or that of a saved scenario, balanced or one-sided."""
        out = {str(c): v for c, v in rows.items()}
        if not self.chance(0.7 if slot else 0.35):
            return out
        for _ in range(self.rng.randrange(1, 7)):
            code = self.rng.choice(codes)
            key = str(code)
            entry = out.get(key, {})
            entry = entry if isinstance(entry, dict) else {"金額": entry}
            amount = self.yen(self.rng.randrange(0, max(2, self.scale // 3)))
            if self.chance(0.03):
                amount = -amount
            for side in self.pick(("借方",), ("貸方",), ("借方", "貸方")):
                entry[side + slot] = amount if self.chance(0.8) else amount // 2
            out[key] = entry
        return out

    def three(self, years, average):
        """Figures of three periods whose adopted average is the given one, or nearly."""
        r = self.rng
        span = max(1, min(average, 10**6) // 3 + 1)
        d = self.pick(0, 0, 1, r.randrange(span))
        if years == 2:
            base, last = average + d, average - d - self.pick(0, 0, 1)
            return [self.pick(0, average, r.randrange(span * 3)), max(0, last), base]
        # three years: base + 2 x mean of the two before
        base = average + 2 * d
        mean = max(0, average - d)
        e = self.pick(0, 1, r.randrange(mean + 1) if mean else 0)
        e = min(e, mean)
        return [mean + e - self.pick(0, 0, 1) if mean else 0, mean - e, base + self.pick(0, 0, 1, -1 if base else 0)]

    def engineers(self, value):
        counts = dict.fromkeys(range(1, 7), 0)
        rest = value
        order = [(1, 6), (2, 5), (6, 4), (3, 3), (4, 2)]
        self.rng.shuffle(order)
        for n, weight in order:
            counts[n] = min(32767, self.rng.randrange(rest // weight + 1))
            rest -= counts[n] * weight
        counts[5] = min(32767, rest)
        return counts

    def line(self, law, years, prefix, average=None, other=False):
        r, out = self.rng, {}

        def plain():
            return int(10 ** r.uniform(0, 7))

        if average is None:
            average = plain() if self.chance(0.5) else max(0, self.edge("X1A" if law < 2 else "X1B"))
        figures = self.three(years, average)
        if self.risky and self.chance(0.04):
            figures = self.pick([0, 0, MAX32], [0, 1, MAX32], [MAX32, 0, 0], [0, MAX32, 0])
        shape = r.random()
        for name, v in zip(OWN, figures):
            if shape < 0.06:                      # nothing entered
                continue
            if shape < 0.25 and self.chance(0.5):  # a part entered
                continue
            out[prefix + name] = 0 if shape > 0.97 else v
        if self.chance(0.6):
            prime = plain() if self.chance(0.4) else max(0, self.edge("Z2A" if law < 2 else "Z2B"))
            for name, v in zip(PRIME, self.three(years, prime)):
                if not self.chance(0.1):
                    out[prefix + name] = v
        if not other and self.chance(0.7):
            value = self.pick(r.randrange(60), max(0, self.near(r.choice(EDGES["Z1"]))))
            if self.chance(0.02):
                value = r.randrange(15000, 200000)
            for n, count in self.engineers(value).items():
                if count or self.chance(0.3):
                    out["%s技術者%d" % (prefix, n)] = count
        if not other and self.chance(0.04):
            # stale scores of an earlier calculation
            for name in r.sample(SCORE_COLUMNS, 3):
                out[prefix + name] = r.randrange(0, 2000)
        return out

    def lines(self, law, years, prefix=""):
        r = self.rng
        count = self.pick(0, 1, 1, 2, 3, 4, 6, 33)
        chosen = r.sample([i for i in range(34) if i not in (32, 33)], min(count, 32))
        if count == 33 or self.chance(0.25):
            chosen.append(33)
        if count == 1 and self.chance(0.2):
            chosen = [self.pick(1, 6, 13)]
        size = max(0, self.near(r.choice(STAFF_SIZES))) if count == 1 and self.chance(0.5) else None
        out = {}
        for index in sorted(chosen):
            average = size
            if index == 33:
                # its points are computed too, though never kept
                average = 50000000 if self.risky and self.chance(0.15) else int(10 ** r.uniform(2, 6))
            out[index] = self.line(law, years, prefix, average, index == 33)
        return {index: line for index, line in out.items() if line}

    def elements(self, law, years):
        r, e = self.rng, {}

        def put(code, value, p=0.9):
            if self.chance(p):
                e[code] = value

        def put_any(answers, p=0.9):
            for code, values in answers.items():
                put(code, self.pick(*values), p)

        put_any({1: (1, 2, 1, 2, 0)}, 0.8)
        put_any({101: (0, 1, 1, 2), 102: (0, 1, 1, 2), 103: (0, 1, 2) if law >= 3 else (0, 1), 104: (0, 1), 105: (0, 1)})
        put_any({106: (0, 1)} if law >= 3 else {})
        put(111, self.pick(0, 5, 6, 7, 34, 35, 36, 100, 199, 200, r.randrange(60)))
        put_any({121: (0, 1, 1), 131: (0, 0, 1, 2), 141: (0, 1, 2, 3, 3)})
        put(142, self.pick(0, r.randrange(15)))
        put(143, self.pick(0, 1, 2, 3, 4, r.randrange(40)))
        # by turns, so that a few hundred firms reach every band
        cost = RESEARCH[self.number % len(RESEARCH)] - self.pick(0, 1) if self.chance(0.8) else r.randrange(0, 2200000)
        d = self.pick(0, r.randrange(1, 1000))
        put(151, cost + d)
        put(152, max(0, cost - d + self.pick(0, 0, 1)))
        put(201, years, 0.8)
        if years == 2 and self.chance(0.2):
            e[201] = 0
        if self.chance(0.2):
            # totals of an earlier calculation
            e[202], e[203] = r.randrange(10**7), r.randrange(10**7)
            for code in (100, 110, 120, 130, 140, 150, 200, *((213, 216) if law >= 2 else ()), *((233, 240, 241) if law >= 4 else ())):
                put(code, r.randrange(30), 0.5)
        # Items of later law years must not count in an earlier one.
        if law >= 2 or self.chance(0.1):
            put_any({211: (0, 0, 1), 212: (0, 1, 7, 8, 9, 10, 11, 12, 13, 14, 15, 100), 214: (0, 1), 215: (0, 1)})
        if law >= 2 and self.chance(0.1):
            e[213], e[216] = self.pick(0, 15, 7), self.pick(0, 10)
        if law >= 4 or self.chance(0.1):
            self.late_elements(put, e, law)
            put_any({235: range(6), 236: range(5), 237: range(3), 238: range(7)}, 0.7)
            put_any({239: (0, 1)}, 0.8)
        return e

    def late_elements(self, put, e, law):
        r = self.rng
        staff = self.pick(0, 0, 1, 20, 100, 101, 200, r.randrange(1, 400))
        put(221, staff)
        fifteen = staff * 15 // 100
        put(222, max(0, self.pick(0, fifteen, self.near(fifteen), r.randrange(max(1, staff)))))
        put(225, max(0, self.pick(0, staff // 100, self.near(staff // 100), r.randrange(max(1, staff)))))
        if self.chance(0.35):
            # what an earlier calculation left; it stands while there is no staff
            e[223], e[224] = self.pick((20, 1), (3, 0))
            e[226], e[227] = self.pick((5, 1), (0, 0))
        if law >= 4 and self.risky and self.chance(0.1):
            e[221], e[224] = 0, self.pick(3200, 3300, 32767)   # ten times this leaves 16 bits
        engineers = self.pick(0, 1, 2, 3, 7, 10, r.randrange(1, 60))
        per_head = self.pick(3, 6, 9, 12, 15, 18, 21, 24, 27, 30, 30, 31, 60)
        put(228, max(0, engineers * per_head + self.pick(-1, 0, 0, 0, 1)) if engineers else self.pick(0, 30))
        put(229, engineers)
        put(230, self.pick(0, 1, 5))
        skilled = self.pick(0, 1, 4, 22, r.randrange(1, 300))
        deducted = self.pick(0, 1, skilled, r.randrange(skilled + 1), max(0, skilled - 1))
        if self.chance(0.5):
            # rates at a threshold: deducted / (skilled - deducted) = n x 15 / 1000
            n, times = r.randrange(1, 12), self.pick(1, 1, 2)
            deducted = 3 * n * times
            skilled = deducted + 200 * times + self.pick(-1, 0, 0, 1)
        elif self.chance(0.15):
            e[228], e[229], e[230] = 30, 1, 1
            skilled, deducted = self.pick((22, 11), (6, 3), (48, 24))
        put(231, skilled)
        put(232, deducted)

    def period(self, k, first):
        law = self.pick(1, 2, 3, 4, 4)
        years = self.pick(2, 2, 3)
        hidden = self.chance(0.07)        # amounts on lines that this firm type does not show
        codes = [account.code for account in CHARTS[self.edition].values()
                 if account.entered and account.code < 800 and (hidden or not account.hidden[self.corporation])]
        rows = self.statement(codes)
        allowed = set(codes) | set(PRIOR) | set(SECOND_PRIOR) | {901}
        rows = {c: v for c, v in rows.items() if c in allowed}
        self.prior_block(rows, first)
        elements = self.elements(law, years)
        read_years = elements.get(201) or 2
        lines = self.lines(law, read_years)

        improved_elements = {}
        if self.chance(0.25):
            improved = self.elements(law, read_years)
            both = self.chance(0.8)
            if both or self.chance(0.5):
                improved_elements = improved
            if both or not improved_elements:
                added = self.lines(law, improved.get(201) or 2, "改0")
                if any(n != "改0技術者6" for line in added.values() for n in line):
                    for index, line in added.items():
                        lines.setdefault(index, {}).update(line)
        rows = self.journal(dict(sorted(rows.items())), codes)
        if self.chance(0.05):
            number = self.pick(1, 1, 2, 3)
            slot = "改%d" % number
            for index, line in self.lines(law, 2, slot).items():
                line.pop(slot + "技術者6", None)
                lines.setdefault(index, {}).update(line)
            rows = self.journal(rows, codes, str(number))

        w = {}
        for code in sorted(set(elements) | set(improved_elements)):
            columns = [("現状", elements), ("改善後0", improved_elements)]
            w[str(code)] = {name: column[code] for name, column in columns if code in column}
            if code not in improved_elements and not self.chance(0.05):
                w[str(code)] = elements[code]
        return {"決算期": k, "Simyu_Kubun": law, "Ks_Zaihyo": rows,
                "Kandaka_Gj": {str(i): lines[i] for i in sorted(lines)}, "W_Yoso": w}

    def case(self):
        r = self.rng
        count = self.pick(1, 1, 2, 2, 3)
        start = self.pick(35, 35, 34, r.randrange(1, 80))
        numbers = list(range(start, start + count))
        in_hand = numbers[-1] if self.chance(0.85) else r.choice(numbers)
        year, month, day = r.choice(END_DATES)
        if self.chance(0.2):
            month = r.randrange(1, 13)
            day = calendar.monthrange(2018 + year, month)[1]
            day = 28 if month == 2 else day
        end = datetime.date(2018 + year, month, day)
        begin = end + datetime.timedelta(days=1)
        if (begin.month, begin.day) == (2, 29):        # not a day of the year before
            begin += datetime.timedelta(days=1)
        return {"format": "morvane-case", "version": 1, "Tiiki_CD": self.edition,
                "Jigyo_mas": {"管理No": self.number, "事業所名": "照合建設第%d号" % self.number,
                              "事業所カナ名": "ｼ", "法人個人識別": 1 if self.corporation else 2, "処理決算期": in_hand,
                              "決算期開始年": begin.year - 1 - 2018, "決算期開始月": begin.month, "決算期開始日": begin.day,
                              "決算期終了年": year, "決算期終了月": month, "決算期終了日": day},
                "periods": [self.period(k, k == start) for k in numbers]}


def main():
    seed, count, folder = sys.argv[1], int(sys.argv[2]), pathlib.Path(sys.argv[3])
    edition = sys.argv[4] if len(sys.argv) > 4 else "13"
    folder.mkdir(parents=True, exist_ok=True)
    for number in range(1, count + 1):
        text = json.dumps(Firm(seed, number, edition).case(), ensure_ascii=False, indent=1)
        (folder / ("%06d.json" % number)).write_text(text + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
