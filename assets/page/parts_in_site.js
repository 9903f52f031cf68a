// Where the page finds its parts: beside it.
const makeWorker = () => new Worker('korvane-worker.js');
const mayGoOffline = async (part) => {
  if (!navigator.serviceWorker || !/^https?:$/.test(location.protocol)) return;
  try {
    await navigator.serviceWorker.register('offline.js');
    (await navigator.serviceWorker.ready).active.postMessage(part);
  } catch (error) {
    // Then it opens with a network alone.
  }
};
