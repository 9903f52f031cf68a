// What the page around the workshop has of its own.
const Own = {
  pt: {
    over: 'Fim. O que você guardou está entre as suas telas.',
    failed: 'A oficina parou: ',
    again: 'Abrir de novo',
    notKept: 'Este navegador não guarda nada para esta página: as telas acabam com ela. O endereço de uma tela a leva.',
    keys: 'Clique ou toque: um bloco. Arraste: uma fila. Botão direito ou Delete: apaga. F5: joga a tela, Esc volta. ' +
      'Ctrl+S: guarda. Ctrl+L: copia o endereço da tela, para mandar a alguém. F1: o resto.',
    help: 'Ajuda',
    play: 'Jogar',
    link: 'Copiar o endereço',
    save: 'Guardar',
    load: 'Abrir',
    rule: 'Regra',
    remove: 'Apagar o escolhido',
    undo: 'Desfazer',
    redo: 'Refazer',
    close: 'Voltar à oficina',
    other: 'Ao jogo',
  },
  en: {
    over: 'The end. What you saved is among your levels.',
    failed: 'The workshop has stopped: ',
    again: 'Open it again',
    notKept: 'This browser keeps nothing for this page: levels end with it. The address of a level carries it.',
    keys: 'Click or tap: a block. Drag: a row. Right button or Delete: removes. F5: plays the level, Esc comes back. ' +
      'Ctrl+S: saves. Ctrl+L: copies the address of the level, to be sent to somebody. F1: the rest.',
    help: 'Help',
    play: 'Play',
    link: 'Copy the address',
    save: 'Save',
    load: 'Open',
    rule: 'Rule',
    remove: 'Remove what is chosen',
    undo: 'Undo',
    redo: 'Redo',
    close: 'Back to the workshop',
    other: 'To the game',
  },

  part: 'workshop',
  fingersDraw: true,  // and do not only steer
  words: [],
  // F1 and F5; A, C, D, E, L, M, O, S, X, Y and Z with Ctrl.
  keys: [112, 116],
  keysWithCtrl: [65, 67, 68, 69, 76, 77, 79, 83, 88, 89, 90],
  actions: {
    help: [112, 0], play: [116, 0], link: [76, 2], save: [83, 2], load: [79, 2], rule: [82, 0],
    remove: [46, 0], undo: [90, 2], redo: [89, 2],
  },

  // What stands from '#' on may come from anybody. A longer one than the workshop makes carries no level.
  takeAddress() {
    const kLongest = 8192;  // after '#'
    if (location.hash) this.words.push(location.hash.slice(0, 1 + kLongest));
    addEventListener('hashchange', () => location.reload());
  },
};
Own.takeAddress();
