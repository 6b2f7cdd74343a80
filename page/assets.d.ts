// assets.js is made by the build.
export const assets: Record<string, string>;
export const pieces: Record<string, number>;
export const levels: Record<number, string>;
export const plays: Record<number, string>;
