// How long a MIDI file lasts: to the end of its longest track.

const defaultTempo = 500000; // microseconds a quarter note

function number(bytes, at) {
  let value = 0;
  do value = value << 7 | bytes[at] & 0x7F; while (bytes[at++] & 0x80);
  return [value, at];
}

// The tick of the track's last event; tempo changes are added to `tempos`.
function readTrack(bytes, at, end, tempos) {
  let tick = 0, status = 0, delta = 0, length = 0;
  while (at < end) {
    [delta, at] = number(bytes, at);
    tick += delta;
    if (bytes[at] & 0x80) status = bytes[at++];
    if (status === 0xFF || status === 0xF0 || status === 0xF7) {
      const type = status === 0xFF ? bytes[at++] : 0;
      [length, at] = number(bytes, at);
      if (type === 0x51) tempos.push({ tick, tempo: bytes.readUIntBE(at, 3) });
      at += length;
    } else {
      at += (status & 0xE0) === 0xC0 ? 1 : 2;
    }
  }
  return tick;
}

export function midiSeconds(bytes) {
  const division = bytes.readUInt16BE(12);
  const tempos = [{ tick: 0, tempo: defaultTempo }];
  let last = 0;
  for (let at = 8 + bytes.readUInt32BE(4); at + 8 <= bytes.length;) {
    const length = bytes.readUInt32BE(at + 4);
    if (bytes.toString('latin1', at, at + 4) === 'MTrk') last = Math.max(last, readTrack(bytes, at + 8, at + 8 + length, tempos));
    at += 8 + length;
  }
  tempos.sort((a, b) => a.tick - b.tick);
  const spans = tempos.map(({ tick, tempo }, i) => (Math.min(tempos[i + 1]?.tick ?? last, last) - Math.min(tick, last)) * tempo);
  return spans.reduce((sum, span) => sum + span, 0) / division / 1e6;
}
