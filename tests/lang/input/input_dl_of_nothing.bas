10 PRINT "[";INPUT$(0);INPUT$(-1);"]"
