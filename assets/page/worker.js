// The worker's side of the page: calls the program once for each thing that it is asked for.
const lines = [];
Module.noInitialRun = true;
Module.print = (line) => lines.push(line);
Module.onRuntimeInitialized = () => postMessage({ ready: true });

function callWith(...words) {
  lines.length = 0;
  const good = callMain(words) === 0;
  return { good, said: lines.join('\n') };
}

function makeSounds() {
  FS.mkdirTree('/sons');
  callWith('sons', '/sons');
  for (const name of FS.readdir('/sons').filter((name) => name.endsWith('.wav')))
    postMessage({ sound: name, bytes: FS.readFile('/sons/' + name) });
  postMessage({ sounded: true });
}

// A text map becomes a level first.
function checkLevel({ number, bytes, map }) {
  FS.writeFile(map ? '/map' : '/level', bytes);
  const made = map ? callWith('make', '/map', '/level') : { good: true };
  const { good, said } = made.good ? callWith('check', '/level') : made;
  postMessage({ level: number, good, said, bytes: good ? FS.readFile('/level') : null });
}

onmessage = ({ data }) => {
  if (data.level) checkLevel(data.level);
  else makeSounds();
};
