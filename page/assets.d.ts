// assets.js is made by the build.
export const assets: Record<string, string>;
export const pieces: Record<string, number>;
