// Where the page finds its parts: beside it.
const makeWorker = () => new Worker('korvane-worker.js');
const mayGoOffline = () => {
  if (!navigator.serviceWorker || !/^https?:$/.test(location.protocol)) return;
  navigator.serviceWorker.register('offline.js').catch(() => {});  // then it opens with a network alone
};
