// What the module calls in its caller: Module.onProgress(percent), which answers whether to go on.
mergeInto(LibraryManager.library, {
  FretlineProgress: function (percent) {
    return Module['onProgress'](percent) ? 1 : 0;
  },
});
