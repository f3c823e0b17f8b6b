"""The drawings of the simulated screen, each as a function that makes a picture."""
