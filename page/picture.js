// The game screen: a canvas whose pixels are shown in whole multiples of the display's own.

const canvas = /** @type {HTMLCanvasElement} */ (document.getElementById('crt'));
const context = /** @type {CanvasRenderingContext2D} */ (canvas.getContext('2d', { alpha: false }));
let image = context.createImageData(canvas.width, canvas.height);
let wholePixels = true;

/** @param {Uint8Array} pixels red, green, blue, 255 @param {number} width @param {number} height */
export function show(pixels, width, height) {
  if (width !== image.width || height !== image.height) {
    canvas.width = width;
    canvas.height = height;
    image = context.createImageData(width, height);
  }
  image.data.set(pixels);
  context.putImageData(image, 0, 0);
}

/** How many of the page's pixels one of the game's takes. */
export function scale() {
  return canvas.clientWidth / canvas.width;
}

/** Sizes the canvas to what the window leaves it. */
export function fit() {
  const density = window.devicePixelRatio || 1;
  const room = /** @type {HTMLElement} */ (document.getElementById('screen'));
  const width = room.clientWidth * density / canvas.width;
  const height = room.clientHeight * density / canvas.height;
  const free = Math.min(width, height);
  const factor = wholePixels ? Math.max(1, Math.floor(free)) : Math.max(0.5, free);
  canvas.style.width = `${canvas.width * factor / density}px`;
  canvas.style.height = `${canvas.height * factor / density}px`;
  canvas.classList.toggle('whole', Number.isInteger(factor));
}

/** @param {boolean} whole */
export function setWholePixels(whole) {
  wholePixels = whole;
  fit();
}

new ResizeObserver(fit).observe(/** @type {HTMLElement} */ (document.getElementById('screen')));
