// Of the simulation: the project keeps it, disabled.
module sim_probe(input logic clk);
  initial $display("probing");
endmodule
