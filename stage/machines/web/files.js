// The program's files: what it brings along lies in memory, its player's own folder is kept by the browser too.
const Files = {
  own: '',
  installed: '',
  kept: false,     // by the browser
  writing: false,  // to where the browser keeps them
  again: false,
  onRefusal: () => {},

  // Reads what is kept; the promise is true if the browser keeps files.
  open(name, folders) {
    this.own = '/home/' + name;
    this.installed = '/usr/share/' + name;
    FS.mkdirTree(this.own);
    this.keepWhatChanges();
    try {
      FS.mount(IDBFS, {}, this.own);
    } catch (error) {
      return Promise.resolve(false);
    }
    return new Promise((done) => {
      const give = (error) => {
        this.kept = !error;
        for (const folder of folders) FS.mkdirTree(this.own + '/' + folder);
        done(this.kept);
      };
      try {
        FS.syncfs(true, give);
      } catch (error) {
        give(error);
      }
    });
  },

  // The program replaces a file by renaming another, and removes what is there no more.
  keepWhatChanges() {
    const rename = FS.rename;
    const unlink = FS.unlink;
    const changed = (file) => {
      if (file.startsWith(this.own + '/')) this.keep();
    };
    FS.rename = (from, to) => {
      rename(from, to);
      changed(to);
    };
    FS.unlink = (file) => {
      unlink(file);
      changed(file);
    };
  },

  // Has the browser keep what has changed.
  keep() {
    if (!this.kept) return;
    if (this.writing) {
      this.again = true;
      return;
    }
    this.writing = true;
    FS.syncfs(false, (error) => {
      this.writing = false;
      if (this.again) {  // a file that went meanwhile may be why there is an error
        this.again = false;
        this.keep();
      } else if (error) {
        this.kept = false;
        this.onRefusal();
      }
    });
  },

  names(folder) {
    try {
      return FS.readdir(folder).filter((name) => !name.startsWith('.')).sort();
    } catch (error) {
      return [];
    }
  },

  read(file) {
    try {
      return FS.readFile(file);
    } catch (error) {
      return null;
    }
  },

  write(file, bytes) {
    FS.writeFile(file, bytes);
    Voice.forget();
    this.keep();
  },

  // All files of the player's folder, by their names below it.
  all(below = '') {
    return this.names(this.own + below).flatMap((name) => {
      const file = below + '/' + name;
      return FS.isDir(FS.stat(this.own + file).mode) ? this.all(file) : [file.slice(1)];
    });
  },

  clear() {
    for (const file of this.all()) FS.unlink(this.own + '/' + file);
    Voice.forget();
  },
};
