// For tools, which node runs: the program is this script, and node's own fetch takes no file names.
{
  const files = require('fs');
  const readlink = files.readlinkSync;
  files.readlinkSync = (path, ...rest) => (path === '/proc/self/exe' ? __filename : readlink(path, ...rest));
  globalThis.fetch = undefined;
}
