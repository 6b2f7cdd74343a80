// Pads, as the two joysticks the game looks for: stick or cross for the direction, buttons in their order.
import { Kind, push } from './keys.js';

const neutral = 0.15; // of the way; a stick at rest reads steady
const least = 0, rest = 32767, most = 65535;
const buttonsOfWord = 12; // the ones after them are the cross
const cross = { up: 12, down: 13, left: 14, right: 15 };

/** @type {(string | null)[]} the last reading told, per joystick */
const told = [null, null];
/** @type {boolean[]} */
const offered = [false, false];

/**

 * The game asks only to which side a stick is pushed.

 * @param {number} value -1..1

 */
function side(value) {
  return value < -neutral ? least : value > neutral ? most : rest;
}

/** @param {Gamepad} pad */
function read(pad) {
  const standard = pad.mapping === 'standard';
  /** @param {number} button */
  const held = (button) => standard && (pad.buttons[button]?.pressed ?? false);
  let buttons = 0;
  for (let i = 0; i < Math.min(buttonsOfWord, pad.buttons.length); ++i) if (pad.buttons[i].pressed) buttons |= 1 << i;
  return {
    x: held(cross.left) ? least : held(cross.right) ? most : side(pad.axes[0] ?? 0),
    y: held(cross.up) ? least : held(cross.down) ? most : side(pad.axes[1] ?? 0),
    buttons,
  };
}

/**
 * Tells the game what has changed. A pad shows itself to a page only when it is used, so it cannot be there when the
 * game starts and looks for one: `offer` is called once for each that has come, when its stick is let go.
 * @param {() => void} offer
 */
export function poll(offer) {
  const pads = navigator.getGamepads ? navigator.getGamepads() : [];
  for (const code of [0, 1]) {
    const pad = pads[code];
    if (!pad?.connected) {
      if (told[code] !== null) push(Kind.joystickOff, { code });
      told[code] = null;
      offered[code] = false;
      continue;
    }
    const reading = read(pad);
    const word = JSON.stringify(reading);
    if (word !== told[code]) push(Kind.joystick, { code, ...reading });
    told[code] = word;
    if (offered[code] || reading.x !== rest || reading.y !== rest) continue;
    offered[code] = true;
    offer();
  }
}
