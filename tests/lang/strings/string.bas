10 PRINT STRING$(3,"A");"]";STRING$(3,65);"]";STRING$(3,"BC");"]";STRING$(0,"A");"]";STRING$(3,"");"]"
