interface bus_if #(parameter int WIDTH = 8) (input logic clk);
  import bus_pkg::*;
  request_t         request;
  logic [WIDTH-1:0] reply;
  logic             valid, ready;
  modport master(input clk, ready, reply, output request, valid);
  modport slave(input clk, request, valid, output ready, reply);
endinterface
