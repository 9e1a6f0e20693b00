extern "C" int twice(int number);
extern "C" int twice(int number) { return 2 * number; }
