// Two cells of which one is used.
module cell_and(input a, b, output y);
  assign y = a & b;
endmodule
module cell_or(input a, b, output y);
  assign y = a | b;
endmodule
