    /* first */        a <= f(b, c);
d <= e;
