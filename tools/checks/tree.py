"""The tree of sources that the rules look at: the real one, or a sample of the self-test."""

import os

# The seven folders of the library itself; all but the first hold procedures.
CORE = ["platform", "foundation", "wordaccess", "drawing", "ads", "toolbar", "addin"]
PROCEDURE_FOLDERS = CORE[1:]


class Tree:
    def __init__(self, root):
        self.root = os.path.realpath(root)
        self._texts = {}
        self._core = None

    def files(self, *folders, endings=(".h", ".cpp")):
        """The files below these folders, as paths from the root."""
        for folder in folders:
            for base, below, names in os.walk(os.path.join(self.root, folder)):
                below.sort()
                for name in sorted(names):
                    if name.endswith(endings):
                        yield os.path.relpath(os.path.join(base, name), self.root)

    def files_in(self, *folders, endings=(".h", ".cpp")):
        """The same without the folders below."""
        return [path for path in self.files(*folders, endings=endings) if os.path.dirname(path) in folders]

    def read(self, path):
        if path not in self._texts:
            with open(os.path.join(self.root, path), encoding="utf-8") as file:
                self._texts[path] = file.read()
        return self._texts[path]

    def all_files(self, ending):
        """All files with this ending, but for what builds and runs leave."""
        for base, below, names in os.walk(self.root):
            below[:] = sorted(name for name in below
                              if not name.startswith(".") and not (base == self.root and name in ("build", "out")))
            for name in sorted(names):
                if name.endswith(ending):
                    yield os.path.relpath(os.path.join(base, name), self.root)

    def core(self):
        """What the compiler sees in the core, read once."""
        if self._core is None:
            from .model import read_core
            self._core = read_core(self)
        return self._core
