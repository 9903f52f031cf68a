// A server of one folder.
'use strict';
const fs = require('fs');
const http = require('http');
const path = require('path');

const kTypes = {
  '.html': 'text/html; charset=utf-8', '.js': 'text/javascript', '.css': 'text/css', '.wasm': 'application/wasm',
  '.svg': 'image/svg+xml', '.webmanifest': 'application/manifest+json',
};

// Resolves to {url, close()}.
exports.serve = (folder) => new Promise((done) => {
  const server = http.createServer((request, response) => {
    const name = decodeURIComponent(new URL(request.url, 'http://x').pathname).replace(/\/$/, '/index.html');
    fs.readFile(path.join(folder, path.normalize(name)), (error, bytes) => {
      const type = kTypes[path.extname(name)] || 'application/octet-stream';
      response.writeHead(error ? 404 : 200, { 'content-type': type });
      response.end(bytes);
    });
  });
  server.listen(0, '127.0.0.1', () => done({
    url: `http://127.0.0.1:${server.address().port}/`,
    close: () => {
      server.closeAllConnections();
      return new Promise((closed) => server.close(closed));
    },
  }));
});
