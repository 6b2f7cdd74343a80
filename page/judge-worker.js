// Plays a shared game at full speed, away from the page. Gets {link, assets}, answers {told} at once and then {judged}.

addEventListener('message', async (event) => {
  const { link, assets } = event.data;
  const { default: start } = await import(assets['judge.mjs']);
  const judge = await start({ locateFile: (/** @type {string} */ name) => assets[name] });
  const told = judge.describe(link);
  postMessage({ told });
  if (!told.error) postMessage({ judged: judge.judge(link) });
});
