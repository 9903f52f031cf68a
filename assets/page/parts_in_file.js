// Where the page finds its parts: in itself.
const carried = (id) => document.getElementById(id).textContent;
const carriedBytes = (id) => Uint8Array.from(atob(carried(id)), (letter) => letter.charCodeAt(0));
const makeWorker = () => {
  const bytes = `Uint8Array.from(atob('${carried('worker-wasm')}'), (letter) => letter.charCodeAt(0))`;
  const program = [`var Module = { wasmBinary: ${bytes} };`, carried('worker-js')];
  return new Worker(URL.createObjectURL(new Blob(program, { type: 'text/javascript' })));
};
const mayGoOffline = () => {};
