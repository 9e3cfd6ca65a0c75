// Only the headers that are compiled beforehand are of use here.
int main() {}
