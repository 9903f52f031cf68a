// What the page says, in Portuguese, or in English where the browser asks for it first. What only one of the pages
// says is in its own script.
const Words = {
  pt: {
    loading: 'Korvane…',
    elsewhere: 'O Korvane já está aberto em outra página. Esta espera por ela.',
    turn: 'Vire o telefone de lado, por favor.',
    noWasm: 'Este navegador não tem WebAssembly, de que o Korvane precisa.',
    menu: 'Teclas, telas e arquivos',
    mute: 'Sem som',
    full: 'Tela cheia',
    levelsTitle: 'Suas telas',
    levelsHow: 'Solte na página telas (.sav) ou desenhos (.txt), ou escolha-os aqui. Um arquivo com o número de ' +
      'uma tela fica no lugar dela; outros vêm depois da última.',
    choose: 'Escolher…',
    take: 'Levar tudo (zip)',
    clear: 'Apagar tudo',
    clearAsk: 'Apagar telas, recordes e a velocidade guardados neste navegador?',
    put: 'tela ',
    tooLarge: 'grande demais',
    unreadable: 'não se deixa ler',
  },
  en: {
    loading: 'Korvane…',
    elsewhere: 'Korvane is open in another page already. This one waits for it.',
    turn: 'Please turn your phone to its side.',
    noWasm: 'This browser has no WebAssembly, which Korvane needs.',
    menu: 'Keys, levels and files',
    mute: 'No sound',
    full: 'Full screen',
    levelsTitle: 'Your levels',
    levelsHow: 'Drop levels (.sav) or drawings (.txt) onto the page, or choose them here. A file with the number ' +
      'of a level takes its place; others come after the last one.',
    choose: 'Choose…',
    take: 'Take all (zip)',
    clear: 'Clear all',
    clearAsk: 'Clear the levels, records and speed that this browser keeps?',
    put: 'level ',
    tooLarge: 'too large',
    unreadable: 'cannot be read',
  },

  here() {
    const first = navigator.languages.map((name) => name.slice(0, 2)).find((name) => name === 'pt' || name === 'en');
    const language = first || 'pt';
    document.documentElement.lang = language;
    return { ...this[language], ...Own[language] };
  },
};
