module edge_detect(input clk, input d, output rise);
  reg last = 0;
  always @(posedge clk) last <= d;
  assign rise = d & ~last;
endmodule
