// What the page around the game has of its own.
const Own = {
  pt: {
    over: 'Fim. Até a próxima!',
    failed: 'O jogo parou: ',
    again: 'Jogar de novo',
    notKept: 'Este navegador não guarda nada para esta página: os recordes acabam com ela.',
    keys: 'Mouse ou dedo: a raquete. Clique, toque ou espaço: lança a bola. F1: os bônus. P ou Pause: pausa. ' +
      'Ctrl+A: outra tela. Esc: os recordes, depois o fim.',
    help: 'Bônus',
    jump: 'Outra tela',
    leave: 'Recordes e fim',
    close: 'Voltar ao jogo',
    other: 'Oficina de telas',
  },
  en: {
    over: 'The end. See you!',
    failed: 'The game has stopped: ',
    again: 'Play again',
    notKept: 'This browser keeps nothing for this page: records end with it.',
    keys: 'Mouse or finger: the paddle. Click, tap or space: launches the ball. F1: the bonuses. P or Pause: pause. ' +
      'Ctrl+A: another level. Esc: the records, then the end.',
    help: 'Bonuses',
    jump: 'Another level',
    leave: 'Records and the end',
    close: 'Back to the game',
    other: 'Workshop for levels',
  },

  part: 'game',  // of the site
  fingersDraw: false,
  words: [],     // of the command line
  // Codes of keys that are the program's and not the browser's: F1; A and P with Ctrl.
  keys: [112],
  keysWithCtrl: [65, 80],
  // What the menu offers: the key and its Shift.
  actions: { help: [112, 0], jump: [65, 2], leave: [27, 0] },
};
