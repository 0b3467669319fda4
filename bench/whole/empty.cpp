/// What starting and ending a program costs.
int main() {
    return 0;
}
