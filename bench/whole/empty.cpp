/// An empty program, to measure the cost of starting and ending one.
int main() {
    return 0;
}
