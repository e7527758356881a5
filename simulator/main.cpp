// Replaced by the stand-in service.
int main() { return 0; }
