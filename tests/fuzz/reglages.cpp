// What all fuzz targets run with. A report keeps the callers of its own place; those of the memory it speaks of would
// cost a fifth of the speed, and come with ASAN_OPTIONS=malloc_context_size=30 when a finding is looked at again.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    return "malloc_context_size=0:quarantine_size_mb=1:thread_local_quarantine_size_kb=64:"
           "max_malloc_fill_size=0:detect_leaks=1";
}
