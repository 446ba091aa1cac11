#!/usr/bin/env python3
"""Writes the lists that the benchmarks read.

gen.py N FORMAT [SEED]  -> N random positions (uniform on the sphere) on stdout; the same seed gives the same positions.
FORMAT  tab    HH MM SS.s<TAB>+DD MM SS           (blank-separated sexagesimal, tab between the two cells)
        colon  HH:MM:SS.ss +DD:MM:SS.s            (one blank between)
        csv    ra,dec header, then HH:MM:SS.ss,+DD:MM:SS.s
All fields are cut from integers, so no field ever shows 60."""
import sys, random, math
n = int(sys.argv[1]); fmt = sys.argv[2]; seed = int(sys.argv[3]) if len(sys.argv) > 3 else 20240229
rnd = random.Random(seed)
out = []
w = sys.stdout.write
if fmt == 'csv': w('ra,dec\n')
for i in range(n):
    u = rnd.random(); v = rnd.random()
    d = math.degrees(math.asin(2*v - 1))
    if fmt == 'tab':
        r = int(u*864000) ; s = int(abs(d)*3600 + 0.5)
        sg = '-' if d < 0 else '+'
        t = '%02d %02d %02d.%d\t%s%02d %02d %02d\n' % (r//36000, r//600 % 60, r//10 % 60, r % 10, sg, s//3600, s//60 % 60, s % 60)
    else:
        r = int(u*8640000); s = int(abs(d)*36000 + 0.5)
        sg = '-' if d < 0 else '+'
        ra = '%02d:%02d:%02d.%02d' % (r//360000, r//6000 % 60, r//100 % 60, r % 100)
        de = '%s%02d:%02d:%02d.%d' % (sg, s//36000, s//600 % 60, s//10 % 60, s % 10)
        t = ra + {'colon': ' ', 'csv': ','}[fmt] + de + '\n'
    out.append(t)
    if len(out) == 10000: w(''.join(out)); out = []
w(''.join(out))
