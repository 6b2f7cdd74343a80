#!/usr/bin/python3
"""Measures the music and the two sound effects, and fails when they are out of bounds.

usage: check.py [--data DIR] [--sf2 FILE] [--roll DIR] [--verbose] [PIECE ...]

Every MIDI file is read by the small parser below (note statistics, bar lines,
clashes) and rendered with fluidsynth in a temporary folder (loudness,
clipping, silence).  --roll writes one piano-roll picture per piece (needs PIL).
The exit status is 1 when any check fails.
"""
import argparse, os, subprocess, sys, tempfile, wave
import numpy as np

HERE = os.path.dirname(os.path.abspath(__file__))
# kind: stage = long looping piece, loop = other looping piece, once = played once
# clash = how many long semitone clashes are meant (see README.md)
PIECES = {
    'Stage1.mid':   dict(kind='stage', clash=0),
    'Stage2.Mid':   dict(kind='stage', clash=0),
    'Stage3.Mid':   dict(kind='stage', clash=0),
    'Atacck.Mid':   dict(kind='loop', min=90, max=120, clash=0),
    'boss.mid':     dict(kind='loop', min=40, clash=0),
    'boss02.mid':   dict(kind='loop', min=50, clash=3),   # the bent motif: Eb over the held D
    'Cleared.Mid':  dict(kind='loop', min=5, max=10, clash=0),
    'gameover.mid': dict(kind='once', min=5, max=20, clash=0),
    'End.mid':      dict(kind='once', min=56, max=80, clash=0),
}
STAGE_MIN = 60.0        # seconds a stage piece must last
PEAK_MAX = -0.1         # dBFS
SPREAD_MAX = 4.0        # dB RMS between the looping pieces
TAIL_MAX = 1.2          # seconds of silence allowed at the end of a looping piece
GAP_MAX = 1.5           # seconds of silence allowed inside any piece
POLY_MAX = 24
CHANNELS_MIN = 5
SILENT = -55.0          # dBFS of a 50 ms window that counts as silence
NAMES = 'C C# D Eb E F F# G Ab A Bb B'.split()


def name(p):
    return '%s%d' % (NAMES[p % 12], p // 12 - 1)


class Midi:
    """Standard MIDI file: notes as (start tick, end tick, channel 1-16, key, velocity)."""

    def __init__(self, path):
        d = open(path, 'rb').read()
        if d[:4] != b'MThd':
            raise ValueError('no MIDI header')
        ntrk = int.from_bytes(d[10:12], 'big')
        self.ppq = int.from_bytes(d[12:14], 'big')
        self.notes, self.tempi, self.meters, self.programs = [], [], [], {}
        self.end, self.unclosed = 0, 0
        pos = 14
        for _ in range(ntrk):
            if d[pos:pos + 4] != b'MTrk':
                raise ValueError('no track header')
            size = int.from_bytes(d[pos + 4:pos + 8], 'big')
            self.track(d[pos + 8:pos + 8 + size])
            pos += 8 + size
        self.notes.sort()
        self.tempi.sort()
        if not self.tempi or self.tempi[0][0] > 0:
            self.tempi.insert(0, (0, 500000))
        num, den = self.meters[0][1:] if self.meters else (4, 4)
        self.bar = self.ppq * 4 * num // den

    def track(self, d):
        i = t = status = 0
        held = {}

        def varlen(i):
            v = 0
            while True:
                v = v << 7 | d[i] & 127
                i += 1
                if d[i - 1] < 128:
                    return v, i
        while i < len(d):
            dt, i = varlen(i)
            t += dt
            if d[i] & 128:
                status = d[i]
                i += 1
            if status == 0xFF:
                kind = d[i]
                n, i = varlen(i + 1)
                body = d[i:i + n]
                i += n
                if kind == 0x51:
                    self.tempi.append((t, int.from_bytes(body, 'big')))
                elif kind == 0x58:
                    self.meters.append((t, body[0], 1 << body[1]))
                elif kind == 0x2F:
                    break
            elif status >= 0xF0:
                n, i = varlen(i)
                i += n
            else:
                op, ch = status >> 4, (status & 15) + 1
                a = d[i]
                b = 0 if op in (12, 13) else d[i + 1]
                i += 1 if op in (12, 13) else 2
                if op == 9 and b:
                    held.setdefault((ch, a), []).append((t, b))
                elif op == 8 or op == 9:
                    if held.get((ch, a)):
                        s, v = held[ch, a].pop(0)
                        self.notes.append((s, t, ch, a, v))
                elif op == 12:
                    self.programs.setdefault(ch, []).append(a)
        self.unclosed += sum(map(len, held.values()))
        self.end = max(self.end, t)

    def seconds(self, tick):
        s, last, us = 0.0, 0, self.tempi[0][1]
        for t, u in self.tempi:
            if t >= tick:
                break
            s += (t - last) * us / self.ppq / 1e6
            last, us = t, u
        return s + (tick - last) * us / self.ppq / 1e6

    def polyphony(self):
        ev = sorted([(s, 1) for s, *_ in self.notes] + [(e, -1) for _, e, *_ in self.notes])
        n = m = 0
        for _, x in ev:
            n += x
            m = max(m, n)
        return m

    def clashes(self):
        """Pairs of pitched notes a minor second or minor ninth (in any octave) apart that sound
        together for more than an eighth."""
        out = []
        pitched = [n for n in self.notes if n[2] != 10]
        for i, (s, e, c, p, _) in enumerate(pitched):
            for s2, e2, c2, p2, _ in pitched[i + 1:]:
                if s2 >= e:
                    break
                if abs(p - p2) % 12 == 1 and min(e, e2) - s2 > self.ppq // 2 + 4:
                    out.append((s2, c, p, c2, p2, (min(e, e2) - s2) / self.ppq))
        return out


def db(x):
    return 20 * np.log10(max(float(x), 1e-9))


def read_wav(path):
    with wave.open(path) as w:
        a = np.frombuffer(w.readframes(w.getnframes()), '<i2').astype(float) / 32768
        return a.reshape(-1, w.getnchannels()), w.getframerate(), w.getsampwidth()


def a_weighted(x, rate):
    """RMS after the A curve: closer to what is heard than the plain RMS."""
    bins = np.fft.rfft(x.mean(axis=1))
    f = np.fft.rfftfreq(len(x), 1 / rate)
    f2 = f * f
    w = 1.2589 * (12194 ** 2 * f2 * f2) / ((f2 + 20.6 ** 2) * (f2 + 12194 ** 2)
        * np.sqrt((f2 + 107.7 ** 2) * (f2 + 737.9 ** 2)))
    return db(np.sqrt(2 * np.sum(np.abs(bins * w) ** 2)) / len(x))


def silences(x, rate):
    """Longest silence between sounds, and the silence at the end, in seconds."""
    n = int(rate * .05)
    win = x[:len(x) // n * n].reshape(-1, n * x.shape[1])
    loud = np.flatnonzero(np.sqrt((win ** 2).mean(axis=1)) > 10 ** (SILENT / 20))
    if not len(loud):
        return len(win) * .05, len(win) * .05
    inner = (np.diff(loud).max() - 1) * .05 if len(loud) > 1 else 0
    return inner, (len(win) - 1 - loud[-1]) * .05


def piano_roll(m, path):
    from PIL import Image, ImageDraw
    colours = ['#ff5050', '#50a0ff', '#60e060', '#ffd040', '#d070ff', '#40e0e0', '#ff90c0',
               '#c0c0c0', '#a08040', '#808080', '#ffffff', '#90b0ff', '#b0ff90', '#ff9040', '#7070ff', '#e0e080']
    width, kh, low, high = 2200, 8, 24, 100
    h = (high - low + 1) * kh
    im = Image.new('RGB', (width, h + 130), '#101018')
    dr = ImageDraw.Draw(im)
    sx = width / m.end
    for p in range(low, high + 1):
        if p % 12 == 0:
            y = (high - p + 1) * kh
            dr.line((0, y, width, y), '#404050')
            dr.text((2, y - 11), name(p), '#8080a0')
    bar = 0
    while bar * m.bar <= m.end:
        x = int(bar * m.bar * sx)
        dr.line((x, 0, x, h + 130), '#505068' if bar % 4 == 0 else '#262632')
        if bar % 4 == 0:
            dr.text((x + 2, 1), str(bar + 1), '#a0a0c0')
        bar += 1
    for s, e, c, p, v in m.notes:
        x0, x1 = int(s * sx), max(int(s * sx) + 1, int(e * sx) - 1)
        if c == 10:
            y = h + 4 + (p - 35) % 24 * 5
            dr.rectangle((x0, y, x0 + 3, y + 4), fill='#%02x%02x%02x' % (v + 100, v + 100, v + 60))
        else:
            y = (high - p) * kh
            dr.rectangle((x0, y, x1, y + kh - 2), fill=colours[(c - 1) % 16])
    for k, c in enumerate(sorted({n[2] for n in m.notes if n[2] != 10})):
        dr.rectangle((60 + k * 90, 14, 72 + k * 90, 24), fill=colours[c - 1])
        dr.text((76 + k * 90, 13), 'ch %d' % c, '#ffffff')
    im.save(path)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument('--data', default=os.path.join(HERE, '..', '..', 'assets', 'data'))
    ap.add_argument('--sf2', default='/usr/share/sounds/sf2/TimGM6mb.sf2')
    ap.add_argument('--roll', metavar='DIR')
    ap.add_argument('--verbose', action='store_true', help='list every clash')
    ap.add_argument('pieces', nargs='*')
    o = ap.parse_args()
    bad = []
    rms = {}

    def fail(who, what):
        bad.append('%s: %s' % (who, what))

    unknown = [p for p in o.pieces if p not in PIECES]
    if unknown:
        sys.exit('unknown piece: %s (known: %s)' % (' '.join(unknown), ' '.join(PIECES)))
    for f in o.pieces or PIECES:
        want = PIECES[f]
        path = os.path.join(o.data, f)
        try:
            m = Midi(path)
        except (OSError, ValueError, IndexError) as e:
            fail(f, 'not readable (%s)' % e)
            continue
        length = m.seconds(m.end)
        with tempfile.TemporaryDirectory() as tmp:
            out = os.path.join(tmp, 'out.wav')
            r = subprocess.run(['fluidsynth', '-ni', '-R', '0', '-C', '0', '-g', '0.6', '-r', '44100',
                                '-F', out, o.sf2, path], stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            if r.returncode or not os.path.exists(out):
                fail(f, 'fluidsynth failed: %s' % r.stdout.decode(errors='replace')[-200:])
                continue
            x, rate, _ = read_wav(out)
        if not len(x) or not m.notes:
            fail(f, 'no sound')
            continue
        body = x[:int(length * rate)]
        peak, level, heard = db(np.abs(x).max()), db(np.sqrt((body ** 2).mean())), a_weighted(body, rate)
        inner, tail = silences(body, rate)
        last = max(e for _, e, *_ in m.notes)
        tail = max(tail, m.seconds(m.end) - m.seconds(last))
        poly, clash = m.polyphony(), m.clashes()
        off = min(m.end % m.bar, m.bar - m.end % m.bar)
        over = last - m.end
        rms[f] = level
        print('%-13s %6.2f s  %3d bars  peak %6.2f dBFS  RMS %6.2f dBFS  A-weighted %6.2f  most notes at once %2d'
              % (f, length, round(m.end / m.bar), peak, level, heard, poly))
        print('    longest silence inside %.2f s, at the end %.2f s; clashes %d' % (inner, tail, len(clash)))
        chans = sorted({n[2] for n in m.notes})
        for c in chans:
            ns = [n for n in m.notes if n[2] == c]
            ps = [n[3] for n in ns]
            vs = [n[4] for n in ns]
            print('    ch %2d program %-9s %5d notes  %s..%s  velocity %d..%d' % (
                c, '/'.join(map(str, dict.fromkeys(m.programs.get(c, ['-'])))), len(ns),
                name(min(ps)), name(max(ps)), min(vs), max(vs)))
        seen = set()
        for s, c, p, c2, p2, beats in clash:
            key = (s // m.bar, c, c2, p, p2)
            if o.verbose and key not in seen:
                seen.add(key)
                print('    clash bar %d beat %.2f: ch %d %s / ch %d %s for %.2f beats' % (
                    s // m.bar + 1, s % m.bar / m.ppq + 1, c, name(p), c2, name(p2), beats))
        if peak >= PEAK_MAX:
            fail(f, 'clips (peak %.2f dBFS)' % peak)
        if want['kind'] == 'stage':
            if length < STAGE_MIN:
                fail(f, 'only %.1f s' % length)
            if len(chans) < CHANNELS_MIN or 10 not in chans:
                fail(f, 'roles missing (channels %s)' % chans)
        if not want.get('min', 0) <= length <= want.get('max', 1e9):
            fail(f, 'lasts %.1f s, wanted %s..%s' % (length, want.get('min', 0), want.get('max', 'any')))
        if want['kind'] != 'once':
            if off > 30:        # abc2midi adds 26 ticks to every track
                fail(f, 'does not end on a bar line (%d ticks off)' % off)
            if any(c == 10 and n > m.end - m.ppq for n, _, c, _, _ in m.notes):
                # a fill that runs into the restart would stumble when the restart is late
                fail(f, 'drums in the last beat before the restart')
            if tail > TAIL_MAX:
                fail(f, 'silent for %.2f s at the end' % tail)
        if inner > GAP_MAX:
            fail(f, 'silent for %.2f s inside' % inner)
        if poly > POLY_MAX:
            fail(f, '%d notes at once' % poly)
        if m.unclosed:
            fail(f, '%d notes never end' % m.unclosed)
        if over > 0:
            fail(f, 'a note runs past the end')
        if len(clash) > want['clash']:
            fail(f, '%d long clashes, %d are meant' % (len(clash), want['clash']))
        if o.roll:
            os.makedirs(o.roll, exist_ok=True)
            piano_roll(m, os.path.join(o.roll, f.split('.')[0] + '.png'))
    looped = {f: rms[f] for f in rms if PIECES[f]['kind'] != 'once'}
    if len(looped) > 1:
        spread = max(looped.values()) - min(looped.values())
        print('looping pieces: loudness spread %.2f dB' % spread)
        if spread > SPREAD_MAX:
            fail('looping pieces', 'loudness differs by %.2f dB' % spread)

    if not o.pieces:
        levels = {}
        for f, longest in (('Wave1.wav', 1.0), ('Wave2.wav', 0.15)):
            try:
                x, rate, width = read_wav(os.path.join(o.data, f))
            except (OSError, wave.Error, EOFError) as e:
                fail(f, 'not readable (%s)' % e)
                continue
            if not len(x):
                fail(f, 'empty')
                continue
            length, peak, level = len(x) / rate, db(np.abs(x).max()), db(np.sqrt((x ** 2).mean()))
            levels[f] = level
            first, final = abs(x[0]).max(), abs(x[-1]).max()
            print('%-13s %6.3f s  %d Hz  peak %6.2f dBFS  RMS %6.2f dBFS  A-weighted %6.2f  first %.4f last %.4f'
                  % (f, length, rate, peak, level, a_weighted(x, rate), first, final))
            if width != 2 or x.shape[1] != 1 or rate not in (22050, 44100):
                fail(f, 'not 16-bit mono at 22050 or 44100 Hz')
            if length >= longest:
                fail(f, 'lasts %.3f s' % length)
            if peak >= PEAK_MAX:
                fail(f, 'clips')
            if peak < -30:
                fail(f, 'too quiet')
            if first > .005 or final > .005:
                fail(f, 'starts or ends with a click')
        if len(levels) == 2 and levels['Wave2.wav'] > levels['Wave1.wav'] - 3:
            fail('Wave2.wav', 'not quieter than Wave1.wav')
    for b in bad:
        print('FAIL ' + b)
    print('%d failed' % len(bad) if bad else 'all checks passed')
    return 1 if bad else 0


if __name__ == '__main__':
    sys.exit(main())
