// Zip files: written without compression, read with or without.

const crcTable = Uint32Array.from({ length: 256 }, (_, byte) => {
  let value = byte;
  for (let i = 0; i < 8; ++i) value = value & 1 ? value >>> 1 ^ 0xEDB88320 : value >>> 1;
  return value >>> 0;
});

/** @param {Uint8Array} bytes */
function crcOf(bytes) {
  let crc = 0xFFFFFFFF;
  for (const byte of bytes) crc = crcTable[(crc ^ byte) & 0xFF] ^ crc >>> 8;
  return (crc ^ 0xFFFFFFFF) >>> 0;
}

const utf8Names = 0x800;
const dosNewYear = 0x21; // 1 January 1980

/** @param {number} signature @param {{name: string, bytes: Uint8Array}} file @param {number} [offset] of the central entry */
function header(signature, file, offset) {
  const name = new TextEncoder().encode(file.name);
  const central = offset !== undefined;
  const bytes = new Uint8Array((central ? 46 : 30) + name.length);
  const view = new DataView(bytes.buffer);
  view.setUint32(0, signature, true);
  let at = 4;
  if (central) { view.setUint16(at, 20, true); at += 2; }
  for (const value of [20, utf8Names, 0, 0, dosNewYear]) { view.setUint16(at, value, true); at += 2; }
  for (const value of [crcOf(file.bytes), file.bytes.length, file.bytes.length]) { view.setUint32(at, value, true); at += 4; }
  view.setUint16(at, name.length, true);
  if (central) view.setUint32(42, offset, true);
  bytes.set(name, bytes.length - name.length);
  return bytes;
}

/** @param {{name: string, bytes: Uint8Array}[]} files */
export function zip(files) {
  /** @type {Uint8Array[]} */
  const parts = [];
  /** @type {Uint8Array[]} */
  const directory = [];
  let offset = 0;
  for (const file of files) {
    const head = header(0x04034B50, file);
    directory.push(header(0x02014B50, file, offset));
    parts.push(head, file.bytes);
    offset += head.length + file.bytes.length;
  }
  const end = new DataView(new ArrayBuffer(22));
  end.setUint32(0, 0x06054B50, true);
  end.setUint16(8, files.length, true);
  end.setUint16(10, files.length, true);
  end.setUint32(12, directory.reduce((sum, part) => sum + part.length, 0), true);
  end.setUint32(16, offset, true);
  return new Blob([...parts, ...directory, new Uint8Array(end.buffer)], { type: 'application/zip' });
}

/** @param {Uint8Array} bytes @param {number} size */
async function inflate(bytes, size) {
  const Stream = /** @type {any} */ (globalThis).DecompressionStream; // younger than the checker's list of names
  const stream = new Blob([bytes]).stream().pipeThrough(new Stream('deflate-raw'));
  const out = new Uint8Array(size);
  let at = 0;
  const reader = stream.getReader();
  for (let part = await reader.read(); !part.done; part = await reader.read()) {
    if (at + part.value.length > size) throw new Error('a file is larger than it says');
    out.set(part.value, at);
    at += part.value.length;
  }
  return out.subarray(0, at);
}

const mostFiles = 200, mostBytes = 8 << 20;

/** @param {Uint8Array} bytes @returns {Promise<{name: string, bytes: Uint8Array}[]>} */
export async function unzip(bytes) {
  const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.length);
  let end = bytes.length - 22;
  while (end >= 0 && view.getUint32(end, true) !== 0x06054B50) --end;
  if (end < 0) throw new Error('this is no zip file');
  const count = view.getUint16(end + 10, true);
  if (count > mostFiles) throw new Error(`it holds more than ${mostFiles} files`);
  const files = [];
  let at = view.getUint32(end + 16, true), total = 0;
  for (let i = 0; i < count; ++i) {
    if (view.getUint32(at, true) !== 0x02014B50) throw new Error('its list of files is damaged');
    const method = view.getUint16(at + 10, true), crc = view.getUint32(at + 16, true);
    const packed = view.getUint32(at + 20, true), size = view.getUint32(at + 24, true);
    const nameLength = view.getUint16(at + 28, true), extra = view.getUint16(at + 30, true) + view.getUint16(at + 32, true);
    const name = new TextDecoder().decode(bytes.subarray(at + 46, at + 46 + nameLength));
    const local = view.getUint32(at + 42, true);
    const start = local + 30 + view.getUint16(local + 26, true) + view.getUint16(local + 28, true);
    total += size;
    if (total > mostBytes) throw new Error(`it holds more than ${mostBytes >> 20} MiB`);
    if (method !== 0 && method !== 8) throw new Error(`${name}: packed in a way that is not known here`);
    const content = bytes.subarray(start, start + packed);
    const file = { name, bytes: method === 0 ? content.slice() : await inflate(content, size) };
    if (crcOf(file.bytes) !== crc) throw new Error(`${name}: damaged`);
    files.push(file);
    at += 46 + nameLength + extra;
  }
  return files;
}
